#pragma once

#include <QModelIndex>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "adapters/qt/grid/CellEdits.h"
#include "adapters/qt/grid/GridText.h"

class QItemSelectionRange;

namespace quorvane::qt {

class GridTable;

/// The data stored for a cell, its row counted below the headings; none where nobody can tell.
using StoredData = std::function<std::optional<std::int32_t>(int row, int column)>;

// Which cells of a table get which text, by what the user has selected.

/// Texts put down with their first at the first selected cell, or at the current one: a cell in
/// sight for each, in the order of rows. A single text is for all selected cells. What finds no
/// column in sight goes on behind the grid's last one.
std::vector<CellText> PasteTargets(const GridTable& table, const TextRows& rows);
/// The text of the cell that the user stood on (`GridTable::Start`) for all selected ones of its
/// column; with but one selected, for the empty ones of all rows below. None when it is empty. What
/// `stored` knows of a cell counts: a grade that isn't shown fills its cell, and that of the first
/// cell is what the others get.
std::vector<CellText> FillTargets(const GridTable& table, const StoredData& stored);
/// No text and no data for the selected cells, or for the current one.
std::vector<CellText> ClearTargets(const GridTable& table);

}  // namespace quorvane::qt
