#pragma once

class QKeyEvent;

namespace quorvane::qt {

/// What a key does with several cells of a grid at once, as in a spreadsheet.
enum class GridCommand { None, Copy, Paste, FillDown, Clear };

GridCommand CommandOf(const QKeyEvent& key);

}  // namespace quorvane::qt
