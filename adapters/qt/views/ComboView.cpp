#include "adapters/qt/views/ComboView.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

#include "adapters/qt/views/ClosedListWheel.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::qt {
namespace {

/// Has the open list of a combo box take a key when it comes. By itself it takes Enter, Esc and the
/// like when the key is announced, and is closed when the key comes: one that was on its way to the
/// form when the list opened would be the form's as well, where Enter presses a button.
class ListKeys : public QObject {
 public:
  explicit ListKeys(QComboBox& box) : QObject(&box), list_(box.view()) {
    // After the box's own filter, and so asked before it.
    list_->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (announcing_) return false;
    if (event->type() == QEvent::ShortcutOverride) {
      // Closed, it would choose its entry once more for a key that was on its way to it.
      event->setAccepted(list_->isVisible());
      return true;
    }
    return event->type() == QEvent::KeyPress && list_->isVisible() &&
           Closes(static_cast<const QKeyEvent&>(*event));
  }

 private:
  /// The list chooses or gives up by that key.
  bool Closes(const QKeyEvent& key) {
    QKeyEvent announced(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text());
    announcing_ = true;
    QCoreApplication::sendEvent(list_, &announced);
    announcing_ = false;
    return !list_->isVisible();
  }

  QAbstractItemView* list_;  // the box's
  bool announcing_ = false;
};

/// What the right button and the menu key open: the host's entries alone.
class ListMenu : public QObject {
 public:
  ListMenu(QComboBox& box, FormWindow& window, const ComboBox& combo)
      : QObject(&box), menu_(new QMenu(&box)), window_(window), combo_(combo) {
    box.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::ContextMenu) return false;
    event->accept();
    if (window_.UserMayAct(combo_) && window_.FrontEnd().GridMenuOpening)
      Open(static_cast<const QContextMenuEvent&>(*event));
    return true;
  }

 private:
  void Open(const QContextMenuEvent& asked) {
    menu_->clear();
    window_.FrontEnd().GridMenuOpening(*menu_, window_, combo_);
    if (!menu_->isEmpty()) menu_->popup(asked.globalPos());
  }

  QMenu* menu_;  // the box's
  FormWindow& window_;
  const ComboBox& combo_;
};

}  // namespace

ComboView::ComboView(FormWindow& window, ComboBox& combo)
    : ControlView(window, combo), combo_(combo), box_(new QComboBox(Surface())) {
  Use(box_);
  box_->setMaxVisibleItems(16);
  new ListKeys(*box_);
  LeaveWheelOf(*box_);
  new ListMenu(*box_, window, combo);
  QObject::connect(box_, &QComboBox::activated, box_,
                   [this](int index) { Gesture([this, index] { combo_.ListIndex(index); }); });
}

bool ComboView::HasSameEntries() const {
  if (box_->count() != combo_.ListCount()) return false;
  for (int i = 0; i < box_->count(); ++i)
    if (box_->itemText(i) != LineText(combo_.List(i))) return false;
  return true;
}

void ComboView::Show() {
  box_->setAccessibleDescription(combo_.Mandatory() ? "obligatorio" : "");
  if (!HasSameEntries()) {
    box_->clear();
    for (int i = 0; i < combo_.ListCount(); ++i) box_->addItem(LineText(combo_.List(i)));
  }
  box_->setCurrentIndex(combo_.ListIndex());
}

}  // namespace quorvane::qt
