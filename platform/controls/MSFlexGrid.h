#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/controls/Grid.h"

namespace quorvane {

/// A grid to look at and choose a row from; each row carries a number.
class MSFlexGrid : public Grid {
 public:
  using Grid::Grid;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "MSFlexGrid"; }

  [[nodiscard]] std::int32_t RowData(int row) const;  ///< error 381 for a missing row
  void RowData(int row, std::int32_t data);           ///< error 381 for a missing row

  /// Appends a row; tabs part the text into cells, and what the columns can't hold is lost.
  void AddItem(const std::string& text);

  /// Sorts the rows that aren't fixed, ascending by the current column, with what belongs to them:
  /// texts that are numbers first, by value, then the others in Spanish alphabetical order. Rows
  /// that compare equal keep their order; the current row number stays.
  void SortAscending();

  /// Moves a row to another position; those between close up. Error 381 for a missing row.
  void RowPosition(int row, int position);

  /// The first row below the headings that is to be in sight.
  [[nodiscard]] int TopRow() const noexcept { return topRow_; }
  void TopRow(int row);  ///< error 380 for a row that doesn't exist
  /// For a front end: how often `TopRow` has been set. Setting the row that stands brings it back
  /// into sight when the user has scrolled away since.
  [[nodiscard]] unsigned TopRowSets() const noexcept { return topRowSets_; }

  std::function<void()> DblClick;

  /// The user double-clicks the current row.
  void DoubleClick() {
    if (DblClick) DblClick();
  }

 private:
  int topRow_ = 0;
  unsigned topRowSets_ = 0;
};

}  // namespace quorvane
