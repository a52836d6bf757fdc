#pragma once

#include <QModelIndex>
#include <vector>

#include "adapters/qt/grid/CellEdits.h"
#include "adapters/qt/grid/GridText.h"

class QItemSelectionRange;

namespace quorvane::qt {

class GridTable;

// Which cells of a table get which text, by what the user has selected.

/// Texts put down with their first at the first selected cell, or at the current one: a cell in
/// sight for each, in the order of rows. A single text is for all selected cells. What finds no
/// column in sight has a column off the grid.
std::vector<CellText> PasteTargets(const GridTable& table, const TextRows& rows);
/// The text of the cell that the user stood on (`GridTable::Start`) for all selected ones of its
/// column; with but one selected, for the empty ones of all rows below. None when it is empty.
std::vector<CellText> FillTargets(const GridTable& table);
/// No text for the selected cells, or for the current one.
std::vector<CellText> ClearTargets(const GridTable& table);

}  // namespace quorvane::qt
