#pragma once

#include <string>

#include "platform/controls/MSFlexGrid.h"
#include "platform/data/Collection.h"

namespace quorvane {

/// The key of the object behind a row of a grid. Error 381 for a missing row.
inline std::string RowKey(const MSFlexGrid& grid, int row) { return Key(grid.RowData(row)); }

/// The key of the object behind the selected row. Error 381 when the grid has no rows.
inline std::string SelectedKey(const MSFlexGrid& grid) { return RowKey(grid, grid.RowSel()); }

}  // namespace quorvane
