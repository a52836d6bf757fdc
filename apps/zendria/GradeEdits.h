#pragma once

#include <string>
#include <vector>

#include "apps/zendria/GradeCell.h"

namespace quorvane::zendria {

/// The cells that the user has edited in the grade form that is open, since it opened. Such forms
/// are modal, so that there is one at a time.
class GradeEdits {
 public:
  /// The cell keeps what it showed before its first edit.
  void Add(GradeEdit edit);
  /// The form of that name goes in order: what was typed is saved, or the user doesn't want it.
  void Drop(const std::string& form);
  void Clear();

  [[nodiscard]] const GradeSheet& Sheet() const noexcept { return sheet_; }
  /// All of them, in the order of their first edit.
  [[nodiscard]] const std::vector<GradeCell>& Edited() const noexcept { return cells_; }
  /// Those that hold something else than before, in the order of their first edit.
  [[nodiscard]] std::vector<GradeCell> Changed() const;

 private:
  GradeSheet sheet_;
  std::vector<GradeCell> cells_;
};

}  // namespace quorvane::zendria
