#include "apps/zendria/BlankCells.h"

#include <QSignalBlocker>
#include <QTreeWidget>

namespace quorvane::zendria {
namespace {

void NameBelow(QTreeWidgetItem& item) {
  for (int column = 0; column < item.treeWidget()->columnCount(); ++column)
    if (item.text(column).trimmed().isEmpty())
      item.setData(column, Qt::AccessibleTextRole, "en blanco");
  for (int child = 0; child < item.childCount(); ++child) NameBelow(*item.child(child));
}

}  // namespace

// Nothing that is seen changes: told of each cell, the view would look for its row among all that
// are open, which takes seconds in a large school.

void NameBlankCells(QTreeWidgetItem& item) {
  const QSignalBlocker quiet(item.treeWidget()->model());
  NameBelow(item);
}

void NameBlankCells(QTreeWidget& tree) {
  const QSignalBlocker quiet(tree.model());
  for (int top = 0; top < tree.topLevelItemCount(); ++top) NameBelow(*tree.topLevelItem(top));
}

}  // namespace quorvane::zendria
