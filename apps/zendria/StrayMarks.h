#pragma once

#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

#include "apps/escuela/state/StrayStudents.h"

class QTreeWidgetItem;

namespace quorvane {
class SchoolState;
struct StateRow;
}  // namespace quorvane

namespace quorvane::zendria {

/// Tells in the tree of an evaluation's state which lines are of students on another section's
/// register: the screen by subject doesn't find those under their section.
class StrayMarks {
 public:
  /// Of one evaluation and section, or (0) of all. Asks `school` at once, whose errors come up;
  /// `state` outlives it.
  StrayMarks(Connection& school, const SchoolState& state, std::int32_t evaluation,
             std::int32_t section);

  /// Adds whose register is where to the first text of a subject's line, with names as its tip.
  void Mark(QTreeWidgetItem& item, const StateRow& row) const;

 private:
  const SchoolState& state_;
  std::map<std::tuple<std::int32_t, std::int32_t, std::int32_t>, std::vector<StrayStudent>> strays_;
};

}  // namespace quorvane::zendria
