#include "platform/controls/MSFlexGrid.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/text/SpanishOrder.h"

namespace quorvane {

std::int32_t MSFlexGrid::RowData(int row) const { return RecordAt(row).data; }

void MSFlexGrid::RowData(int row, std::int32_t data) { Assign(RecordAt(row).data, data); }

void MSFlexGrid::AddItem(const std::string& text) {
  auto end = text.find('\t');
  Grid::AddItem(text.substr(0, end));
  for (int col = 1; end != std::string::npos && col < Cols(); ++col) {
    const auto begin = end + 1;
    end = text.find('\t', begin);
    TextMatrix(Rows() - 1, col, text.substr(begin, end - begin));
  }
}

void MSFlexGrid::SortAscending() {
  if (Cols() == 0) return;
  const auto column = static_cast<std::size_t>(Col());
  std::stable_sort(Records().begin() + FixedRows(), Records().end(),
                   [column](const Record& one, const Record& other) {
                     return NumbersThenSpanishLess(one.cells[column], other.cells[column]);
                   });
  Touch();
}

void MSFlexGrid::RowPosition(int row, int position) {
  auto moved = RecordAt(row);
  static_cast<void>(RecordAt(position));
  Records().erase(Records().begin() + row);
  Records().insert(Records().begin() + position, std::move(moved));
  Touch();
}

void MSFlexGrid::TopRow(int row) {
  if (row < 0 || row >= Rows()) throw RuntimeError(ErrorNumber::InvalidProperty);
  topRow_ = row;
  ++topRowSets_;
  Touch();
}

}  // namespace quorvane
