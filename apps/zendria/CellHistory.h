#pragma once

#include <QObject>
#include <functional>

class QTableView;

namespace quorvane {
class Connection;
namespace qt {
class QtFrontEnd;
}
}  // namespace quorvane

namespace quorvane::zendria {

/// Offers the history of the grade in a menu of each cell of a grade form, while it lives.
class CellHistory : public QObject {
 public:
  /// `screen` outlives it. `school` gives the connection that the host asks for itself; null for
  /// none.
  CellHistory(const qt::QtFrontEnd& screen, std::function<Connection*()> school);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Offer(QTableView& table, const QPoint& place);

  const qt::QtFrontEnd& screen_;
  std::function<Connection*()> school_;
};

}  // namespace quorvane::zendria
