#include "adapters/qt/grid/CellTargets.h"

#include <QItemSelectionRange>

#include "adapters/qt/grid/GridTable.h"

namespace quorvane::qt {
namespace {

QItemSelectionRange Selected(const GridTable& table) {
  const auto chosen = table.Chosen();
  return chosen.isEmpty() ? QItemSelectionRange(table.currentIndex()) : chosen;
}

QString TextAt(const GridTable& table, int row, int column) {
  return table.model()->index(row, column).data().toString();
}

std::vector<CellText> AllSelected(const GridTable& table, const QString& text,
                                  std::optional<std::int32_t> data) {
  std::vector<CellText> cells;
  const auto part = Selected(table);
  for (auto row = part.top(); row <= part.bottom(); ++row)
    for (auto column = part.left(); column <= part.right(); ++column)
      if (!table.isColumnHidden(column)) cells.push_back({row, column, text, data});
  return cells;
}

}  // namespace

std::vector<CellText> PasteTargets(const GridTable& table, const TextRows& rows) {
  const auto part = Selected(table);
  if (!part.isValid() || rows.empty()) return {};
  if (rows.size() == 1 && rows.front().size() == 1)
    return AllSelected(table, rows.front().front(), std::nullopt);
  std::vector<int> columns;
  for (auto column = part.left(); column < table.model()->columnCount(); ++column)
    if (!table.isColumnHidden(column)) columns.push_back(column);
  const auto columnOf = [&](std::size_t j) {
    if (j < columns.size()) return columns[j];
    return table.model()->columnCount() + static_cast<int>(j - columns.size());
  };
  std::vector<CellText> cells;
  for (std::size_t i = 0; i < rows.size(); ++i)
    for (std::size_t j = 0; j < rows[i].size(); ++j)
      cells.push_back({part.top() + static_cast<int>(i), columnOf(j), rows[i][j], {}});
  return cells;
}

std::vector<CellText> FillTargets(const GridTable& table, const StoredData& stored) {
  const auto part = Selected(table);
  if (!part.isValid()) return {};
  const auto start = table.Start();
  const auto column = start.column();
  const auto text = TextAt(table, start.row(), column);
  if (text.trimmed().isEmpty()) return {};
  // What is shown without anything behind it is no more than its text.
  auto data = stored(start.row(), column);
  if (data == 0) data.reset();
  const auto isEmpty = [&](int row) {
    return TextAt(table, row, column).trimmed().isEmpty() && stored(row, column).value_or(0) == 0;
  };
  const auto many = part.height() > 1;
  const auto last = many ? part.bottom() : table.model()->rowCount() - 1;
  std::vector<CellText> cells;
  for (auto row = part.top(); row <= last; ++row)
    if (row != start.row() && (many || isEmpty(row))) cells.push_back({row, column, text, data});
  return cells;
}

std::vector<CellText> ClearTargets(const GridTable& table) { return AllSelected(table, {}, 0); }

}  // namespace quorvane::qt
