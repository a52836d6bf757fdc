#pragma once

class QTreeWidget;
class QTreeWidgetItem;

namespace quorvane::zendria {

/// Gives the cells without a text a name for a screen reader, which would pass them in silence.
void NameBlankCells(QTreeWidget& tree);
/// The same of one item, which stands in a tree, and of all below it.
void NameBlankCells(QTreeWidgetItem& item);

}  // namespace quorvane::zendria
