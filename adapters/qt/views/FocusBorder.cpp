#include "adapters/qt/views/FocusBorder.h"

#include <QEvent>
#include <QFrame>

namespace quorvane::qt {
namespace {

class Border : public QObject {
 public:
  explicit Border(QFrame& frame) : QObject(&frame), plain_(frame.frameStyle()) {
    frame.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // One that loses the keyboard because it is being destroyed is a frame no more.
    auto* frame = qobject_cast<QFrame*>(watched);
    if (frame == nullptr) return false;
    if (event->type() == QEvent::FocusIn) {
      // The palette stays: the arrows of a tree are drawn with it, on the selected row too.
      frame->setForegroundRole(QPalette::Highlight);
      frame->setFrameStyle(QFrame::Box | QFrame::Plain);
    } else if (event->type() == QEvent::FocusOut) {
      frame->setForegroundRole(QPalette::NoRole);
      frame->setFrameStyle(plain_);
    }
    return false;
  }

 private:
  int plain_;
};

}  // namespace

void ShowFocusOnBorder(QFrame& frame) { new Border(frame); }

}  // namespace quorvane::qt
