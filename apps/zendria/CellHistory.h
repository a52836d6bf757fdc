#pragma once

#include <functional>

namespace quorvane {
class Connection;
namespace qt {
class QtFrontEnd;
}
}  // namespace quorvane

namespace quorvane::zendria {

/// Offers the history of the grade in the menu of each cell of a grade form.
class CellHistory {
 public:
  /// Adds itself to `QtFrontEnd::GridMenuOpening`, behind what stands there. `school` gives the
  /// connection that the host asks for itself; null for none.
  CellHistory(qt::QtFrontEnd& screen, std::function<Connection*()> school);
};

}  // namespace quorvane::zendria
