#include "apps/zendria/BlankCells.h"

#include <QTreeWidget>

namespace quorvane::zendria {

void NameBlankCells(QTreeWidgetItem& item) {
  for (int column = 0; column < item.treeWidget()->columnCount(); ++column)
    if (item.text(column).trimmed().isEmpty())
      item.setData(column, Qt::AccessibleTextRole, "en blanco");
  for (int child = 0; child < item.childCount(); ++child) NameBlankCells(*item.child(child));
}

void NameBlankCells(QTreeWidget& tree) {
  for (int top = 0; top < tree.topLevelItemCount(); ++top) NameBlankCells(*tree.topLevelItem(top));
}

}  // namespace quorvane::zendria
