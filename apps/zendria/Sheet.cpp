#include "apps/zendria/Sheet.h"

#include "platform/controls/Grid.h"
#include "platform/controls/ItemList.h"

namespace quorvane::zendria {
namespace {

/// Columns without a width hold keys.
QStringList SheetRow(const Grid& grid, int row) {
  QStringList cells;
  for (int column = 0; column < grid.Cols(); ++column)
    if (grid.ColWidth(column) > 0)
      cells.append(QString::fromStdString(grid.TextMatrix(row, column)));
  return cells;
}

Sheet OfGrid(const Grid& grid) {
  Sheet sheet;
  if (grid.FixedRows() > 0) sheet.headings = SheetRow(grid, grid.FixedRows() - 1);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    sheet.rows.push_back(SheetRow(grid, row));
  return sheet;
}

Sheet OfList(const ItemList& list, const QString& heading) {
  Sheet sheet;
  if (!heading.isEmpty()) sheet.headings = QStringList(heading);
  for (int entry = 0; entry < list.ListCount(); ++entry)
    sheet.rows.emplace_back(QString::fromStdString(list.List(entry)));
  return sheet;
}

}  // namespace

std::optional<Sheet> SheetOf(const Control& control, const QString& heading) {
  if (const auto* const grid = dynamic_cast<const Grid*>(&control)) return OfGrid(*grid);
  if (const auto* const list = dynamic_cast<const ItemList*>(&control))
    return OfList(*list, heading);
  return std::nullopt;
}

}  // namespace quorvane::zendria
