#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "apps/zendria/GradeCell.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {

/// Reads what a school holds now, over a connection of its own: one that the failed screen has
/// worked on may reach a file that has lost its name. Reads nothing more after a first failure.
class StoredGrades {
 public:
  /// `open` makes the connection; a runtime error of it is a failure to read.
  explicit StoredGrades(const std::function<std::unique_ptr<Connection>()>& open);

  /// Whether the cell's grade is in the database; none when that can't be read.
  std::optional<bool> Holds(const GradeSheet& sheet, const GradeCell& cell);

 private:
  std::unique_ptr<Connection> connection_;  // null after a failure
};

}  // namespace quorvane::zendria
