#include "apps/zendria/BlankCells.h"

#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace quorvane::zendria {

void NameBlankCells(QTreeWidget& tree) {
  for (QTreeWidgetItemIterator at(&tree); *at != nullptr; ++at)
    for (int column = 0; column < tree.columnCount(); ++column)
      if ((*at)->text(column).trimmed().isEmpty())
        (*at)->setData(column, Qt::AccessibleTextRole, "en blanco");
}

}  // namespace quorvane::zendria
