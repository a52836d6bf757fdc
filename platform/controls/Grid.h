#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace quorvane {

/// What the two kinds of grid share: a table of texts, counted from 0, whose first rows can be
/// fixed headings, with a current cell. Columns have a width in twips; 0 hides a column.
///
/// The current row is kept while it exists, else becomes the last; it is never a fixed row while
/// there are others. Without rows it is -1.
class Grid : public Control {
 public:
  using Control::Control;

  [[nodiscard]] int Rows() const noexcept { return static_cast<int>(rows_.size()); }
  /// New rows are empty; removed ones are lost. Fixed rows that go are fixed no more. Error 380
  /// below 0, as for the other counts.
  void Rows(int count);
  [[nodiscard]] int Cols() const noexcept { return static_cast<int>(columns_.size()); }
  void Cols(int count);
  [[nodiscard]] int FixedRows() const noexcept { return fixedRows_; }
  /// Error 380 unless it leaves at least one row that isn't fixed; 0 is always allowed.
  void FixedRows(int count);
  [[nodiscard]] int FixedCols() const noexcept { return fixedCols_; }
  void FixedCols(int count);

  [[nodiscard]] const std::string& TextMatrix(int row, int col) const;  ///< error 381 off the grid
  void TextMatrix(int row, int col, std::string text);                  ///< error 381 off the grid
  [[nodiscard]] std::int32_t ColWidth(int col) const;                   ///< error 381 off the grid
  void ColWidth(int col, std::int32_t width);  ///< error 381 off the grid, 380 below 0
  [[nodiscard]] int ColAlignment(int col) const;
  void ColAlignment(int col, int alignment);  ///< 1 left, 4 centred, 7 right, 9 general

  /// Appends a row whose first cell is the text.
  void AddItem(std::string text);
  /// Empties all cells, with the numbers behind them; rows, columns and the current cell stay.
  void Clear();

  [[nodiscard]] int Row() const noexcept { return row_; }
  void Row(int row);  ///< error 380 for a row that doesn't exist
  [[nodiscard]] int Col() const noexcept { return col_; }
  void Col(int col);  ///< error 380 for a column that doesn't exist
  /// The far end of the selection: the current row and column, since one row is selected at most.
  [[nodiscard]] int RowSel() const noexcept { return row_; }
  [[nodiscard]] int ColSel() const noexcept { return col_; }

  [[nodiscard]] bool Redraw() const noexcept { return redraw_; }
  void Redraw(bool redraw) { Assign(redraw_, redraw); }

 protected:
  struct Record {
    std::vector<std::string> cells;
    std::int32_t data = 0;
  };

  [[nodiscard]] Record& RecordAt(int row);
  [[nodiscard]] const Record& RecordAt(int row) const;
  [[nodiscard]] std::vector<Record>& Records() noexcept { return rows_; }
  void KeepCurrentRow();

 private:
  struct Column {
    std::int32_t width = kColumnWidth;
    int alignment = kGeneralAlignment;
  };

  static constexpr std::int32_t kColumnWidth = 960;
  static constexpr int kGeneralAlignment = 9;

  [[nodiscard]] const Column& ColumnAt(int col) const;

  std::vector<Record> rows_ = std::vector<Record>(2, Record{{"", ""}, 0});
  std::vector<Column> columns_ = std::vector<Column>(2);
  int fixedRows_ = 0;
  int fixedCols_ = 0;
  int row_ = 0;
  int col_ = 0;
  bool redraw_ = true;
};

}  // namespace quorvane
