#include "adapters/qt/grid/GridMenu.h"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMenu>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "platform/controls/Control.h"

namespace quorvane::qt {

GridMenu::GridMenu(FormWindow& window, const Control& control, QAbstractItemView& view)
    : QObject(&view), window_(window), control_(control), view_(view), menu_(new QMenu(&view)) {
  // The area's own events are those of the menu key, and what a child of it has left alone.
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
}

void GridMenu::Open(QPoint at) {
  menu_->clear();
  for (const auto& entry : entries_) {
    const auto text = entry.keys.isEmpty() ? entry.text : entry.text + '\t' + entry.keys;
    auto* const action = menu_->addAction(text);
    action->setEnabled(!entry.possible || entry.possible());
    connect(action, &QAction::triggered, this, entry.act);
  }
  const auto& more = window_.FrontEnd().GridMenuOpening;
  if (more) {
    auto* const line = menu_->addSeparator();
    more(*menu_, window_, control_);
    if (menu_->actions().back() == line) menu_->removeAction(line);
  }
  if (!menu_->isEmpty()) menu_->popup(at);
}

bool GridMenu::eventFilter(QObject* /*watched*/, QEvent* event) {
  // A grid that is taken away leaves no menu behind.
  if (event->type() == QEvent::Hide) menu_->close();
  if (event->type() != QEvent::ContextMenu) return false;
  event->accept();
  if (!window_.UserMayAct(control_)) return true;
  const auto& asked = static_cast<const QContextMenuEvent&>(*event);
  auto at = asked.globalPos();
  if (asked.reason() == QContextMenuEvent::Keyboard)
    at = view_.viewport()->mapToGlobal(view_.visualRect(view_.currentIndex()).bottomLeft());
  Open(at);
  return true;
}

}  // namespace quorvane::qt
