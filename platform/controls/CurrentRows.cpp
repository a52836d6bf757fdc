#include "platform/controls/CurrentRows.h"

#include "platform/controls/Form.h"
#include "platform/controls/MSFlexGrid.h"

namespace quorvane {

CurrentRows::CurrentRows(const Form& form) {
  for (auto* const control : form.Controls()) {
    auto* const grid = dynamic_cast<MSFlexGrid*>(control);
    if (grid == nullptr || grid->Row() < grid->FixedRows()) continue;
    Held held{grid, grid->RowData(grid->Row()), 0};
    for (int row = grid->FixedRows(); row < grid->Row(); ++row)
      if (grid->RowData(row) == held.data) ++held.alikeBefore;
    held_.push_back(held);
  }
}

void CurrentRows::ChooseAgain() const {
  for (const auto& held : held_) {
    auto& grid = *held.grid;
    if (grid.Row() != grid.FixedRows()) continue;
    auto alike = held.alikeBefore;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
      if (grid.RowData(row) != held.data || alike-- > 0) continue;
      grid.Row(row);
      break;
    }
  }
}

}  // namespace quorvane
