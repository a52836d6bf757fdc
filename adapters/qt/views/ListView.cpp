#include "adapters/qt/views/ListView.h"

#include <QKeyEvent>
#include <QListWidget>
#include <algorithm>

#include "adapters/qt/grid/GridMenu.h"
#include "adapters/qt/views/FocusBorder.h"
#include "adapters/qt/views/Units.h"

namespace quorvane::qt {

ListView::ListView(FormWindow& window, ListBox& list)
    : ControlView(window, list), list_(list), rows_(new QListWidget(Surface())) {
  Use(rows_);
  ShowFocusOnBorder(*rows_);
  rows_->setUniformItemSizes(true);
  rows_->installEventFilter(this);
  new GridMenu(window, list, *rows_);
  connect(rows_, &QListWidget::itemSelectionChanged, this, [this] { Choose(); });
  connect(rows_, &QListWidget::itemDoubleClicked, this,
          [this] { Gesture([this] { list_.DoubleClick(); }); });
}

void ListView::Choose() {
  const auto chosen = rows_->selectionModel()->selectedRows();
  const auto index = chosen.isEmpty() ? -1 : chosen.front().row();
  if (index == list_.ListIndex()) return;
  Gesture([this, index] { list_.ListIndex(index); });
}

bool ListView::TakesEnter() {
  // A list that nothing is done with by double click leaves Enter to the default button. Elsewhere
  // the Enter after the one that moved the last entry would accept the dialog.
  if (!list_.DblClick) return false;
  if (list_.ListIndex() >= 0) Gesture([this] { list_.DoubleClick(); });
  return true;
}

bool ListView::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto key = static_cast<QKeyEvent*>(event)->key();
  return (key == Qt::Key_Return || key == Qt::Key_Enter) && TakesEnter();
}

bool ListView::HasSameEntries() const {
  if (rows_->count() != list_.ListCount()) return false;
  for (int i = 0; i < rows_->count(); ++i)
    if (rows_->item(i)->text() != LineText(list_.List(i))) return false;
  return true;
}

void ListView::Show() {
  // The keyboard goes on from where the user was, also when that entry has gone to another list.
  const auto before = rows_->currentRow();
  if (!HasSameEntries()) {
    rows_->clear();
    for (int i = 0; i < list_.ListCount(); ++i) rows_->addItem(LineText(list_.List(i)));
  }
  if (list_.ListIndex() >= 0) {
    rows_->setCurrentRow(list_.ListIndex(), QItemSelectionModel::ClearAndSelect);
    return;
  }
  rows_->clearSelection();
  rows_->setCurrentRow(std::min(before, rows_->count() - 1), QItemSelectionModel::NoUpdate);
}

}  // namespace quorvane::qt
