#pragma once

#include <string>
#include <vector>

#include "apps/zendria/GradeCell.h"

namespace quorvane::zendria {

/// The statements with which a grade form has saved: what has returned is in the database for good.
/// The one that came last may have failed, and doesn't count until another has followed it.
class SavingStatements {
 public:
  /// A statement is about to run.
  void Told(const std::string& statement);
  void Clear();

  /// Whether one of them has written the cell's grade.
  [[nodiscard]] bool Wrote(const GradeSheet& sheet, const GradeCell& cell) const;

 private:
  std::vector<std::string> returned_;
  std::string last_;  // empty for one that saves nothing
};

}  // namespace quorvane::zendria
