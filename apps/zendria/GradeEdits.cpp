#include "apps/zendria/GradeEdits.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvane::zendria {

void GradeEdits::Add(GradeEdit edit) {
  sheet_ = std::move(edit.sheet);
  const auto known = std::find_if(cells_.begin(), cells_.end(), [&edit](const GradeCell& cell) {
    return SameCell(cell, edit.cell);
  });
  if (known == cells_.end()) {
    cells_.push_back(std::move(edit.cell));
    return;
  }
  known->text = std::move(edit.cell.text);
  known->data = edit.cell.data;
}

void GradeEdits::Drop(const std::string& form) {
  if (form == sheet_.form) Clear();
}

void GradeEdits::Clear() {
  sheet_ = {};
  cells_.clear();
}

std::vector<GradeCell> GradeEdits::Changed() const {
  std::vector<GradeCell> changed;
  std::copy_if(cells_.begin(), cells_.end(), std::back_inserter(changed),
               [](const GradeCell& cell) { return cell.data != cell.formerData; });
  return changed;
}

}  // namespace quorvane::zendria
