#pragma once

class QTreeWidget;

namespace quorvane::zendria {

/// Gives the cells without a text a name for a screen reader, which would pass them in silence.
void NameBlankCells(QTreeWidget& tree);

}  // namespace quorvane::zendria
