#include "platform/controls/Grid.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

std::size_t Count(int count) {
  if (count < 0) throw RuntimeError(ErrorNumber::InvalidProperty);
  return static_cast<std::size_t>(count);
}

}  // namespace

void Grid::Rows(int count) {
  rows_.resize(Count(count), Record{std::vector<std::string>(columns_.size()), 0});
  fixedRows_ = std::min(fixedRows_, count);
  KeepCurrentRow();
  Touch();
}

void Grid::Cols(int count) {
  columns_.resize(Count(count));
  for (auto& row : rows_) row.cells.resize(columns_.size());
  fixedCols_ = std::min(fixedCols_, count);
  col_ = std::max(0, std::min(col_, count - 1));
  Touch();
}

void Grid::FixedRows(int count) {
  if (count < 0 || (count > 0 && count >= Rows())) throw RuntimeError(ErrorNumber::InvalidProperty);
  fixedRows_ = count;
  KeepCurrentRow();
  Touch();
}

void Grid::FixedCols(int count) {
  if (count < 0 || (count > 0 && count >= Cols())) throw RuntimeError(ErrorNumber::InvalidProperty);
  fixedCols_ = count;
  Touch();
}

void Grid::KeepCurrentRow() {
  // A grid that had no rows stands before the first.
  row_ = std::min(std::max(row_, 0), Rows() - 1);
  if (row_ < fixedRows_ && Rows() > fixedRows_) row_ = fixedRows_;
}

Grid::Record& Grid::RecordAt(int row) {
  if (row < 0 || row >= Rows()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  return rows_[static_cast<std::size_t>(row)];
}

const Grid::Record& Grid::RecordAt(int row) const {
  if (row < 0 || row >= Rows()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  return rows_[static_cast<std::size_t>(row)];
}

const Grid::Column& Grid::ColumnAt(int col) const {
  if (col < 0 || col >= Cols()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  return columns_[static_cast<std::size_t>(col)];
}

const std::string& Grid::TextMatrix(int row, int col) const {
  static_cast<void>(ColumnAt(col));
  return RecordAt(row).cells[static_cast<std::size_t>(col)];
}

void Grid::TextMatrix(int row, int col, std::string text) {
  static_cast<void>(ColumnAt(col));
  Assign(RecordAt(row).cells[static_cast<std::size_t>(col)], std::move(text));
}

std::int32_t Grid::ColWidth(int col) const { return ColumnAt(col).width; }

void Grid::ColWidth(int col, std::int32_t width) {
  static_cast<void>(ColumnAt(col));
  if (width < 0) throw RuntimeError(ErrorNumber::InvalidProperty);
  Assign(columns_[static_cast<std::size_t>(col)].width, width);
}

int Grid::ColAlignment(int col) const { return ColumnAt(col).alignment; }

void Grid::ColAlignment(int col, int alignment) {
  static_cast<void>(ColumnAt(col));
  Assign(columns_[static_cast<std::size_t>(col)].alignment, alignment);
}

void Grid::AddItem(std::string text) {
  Record row{std::vector<std::string>(columns_.size()), 0};
  if (!row.cells.empty()) row.cells.front() = std::move(text);
  rows_.push_back(std::move(row));
  KeepCurrentRow();
  Touch();
}

void Grid::Clear() {
  for (auto& row : rows_) row = Record{std::vector<std::string>(columns_.size()), 0};
  Touch();
}

void Grid::Row(int row) {
  if (row < 0 || row >= Rows()) throw RuntimeError(ErrorNumber::InvalidProperty);
  Assign(row_, row);
}

void Grid::Col(int col) {
  if (col < 0 || col >= Cols()) throw RuntimeError(ErrorNumber::InvalidProperty);
  Assign(col_, col);
}

}  // namespace quorvane
