#include "adapters/qt/grid/FrozenColumn.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace quorvane::qt {

FrozenColumn::FrozenColumn(QTableView& table) : QTableView(&table), table_(table) {
  hide();
  setObjectName("columnaFija");
  setModel(table.model());
  setSelectionModel(table.selectionModel());
  setFocusPolicy(Qt::NoFocus);
  setFrameShape(QFrame::NoFrame);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->hide();
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setTextElideMode(Qt::ElideRight);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  const auto follow = [this] { Follow(); };
  connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, follow);
  connect(table.horizontalScrollBar(), &QScrollBar::rangeChanged, this, follow);
  connect(table.verticalScrollBar(), &QScrollBar::valueChanged, this, follow);
  connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, follow);
  connect(table.verticalHeader(), &QHeaderView::sectionResized, this, follow);
  connect(this, &QTableView::clicked, &table, &QTableView::clicked);
  connect(this, &QTableView::doubleClicked, &table, &QTableView::doubleClicked);
}

bool FrozenColumn::Needed() const {
  return table_.horizontalScrollBar()->value() > 0 && model()->columnCount() > 1 &&
         !table_.isColumnHidden(0);
}

int FrozenColumn::Covered() const {
  // In a narrow table the rest keeps half of the room.
  return Needed() ? std::min(table_.columnWidth(0), table_.viewport()->width() / 2) : 0;
}

void FrozenColumn::Follow() {
  setVisible(Needed());
  if (!Needed()) return;
  setFont(table_.font());
  setWordWrap(table_.wordWrap());
  setSelectionBehavior(table_.selectionBehavior());
  setSelectionMode(table_.selectionMode());
  setVerticalScrollMode(table_.verticalScrollMode());
  auto* const heading = horizontalHeader();
  heading->setVisible(!table_.horizontalHeader()->isHidden());
  heading->setFixedHeight(table_.horizontalHeader()->height());
  for (int column = 1; column < model()->columnCount(); ++column) setColumnHidden(column, true);
  setColumnHidden(0, false);
  heading->setMinimumSectionSize(1);
  setColumnWidth(0, Covered());
  verticalHeader()->setMinimumSectionSize(1);
  for (int row = 0; row < model()->rowCount(); ++row)
    if (rowHeight(row) != table_.rowHeight(row)) setRowHeight(row, table_.rowHeight(row));
  const auto cells = table_.viewport()->geometry();
  const auto top = heading->isHidden() ? cells.top() : table_.horizontalHeader()->y();
  setGeometry(cells.left(), top, Covered(), cells.bottom() + 1 - top);
  verticalScrollBar()->setRange(table_.verticalScrollBar()->minimum(),
                                table_.verticalScrollBar()->maximum());
  verticalScrollBar()->setValue(table_.verticalScrollBar()->value());
  raise();
  viewport()->update();
}

void FrozenColumn::mousePressEvent(QMouseEvent* event) {
  table_.setFocus(Qt::MouseFocusReason);
  QTableView::mousePressEvent(event);
}

void FrozenColumn::wheelEvent(QWheelEvent* event) {
  // The table's affair, whose child this is.
  event->ignore();
}

}  // namespace quorvane::qt
