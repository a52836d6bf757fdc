#include "adapters/qt/FocusBorder.h"

#include <QEvent>
#include <QFrame>

namespace quorvane::qt {
namespace {

class Border : public QObject {
 public:
  explicit Border(QFrame& frame) : QObject(&frame), frame_(frame), plain_(frame.frameStyle()) {
    frame.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) {
      auto colours = frame_.palette();
      colours.setColor(QPalette::WindowText, colours.color(QPalette::Highlight));
      frame_.setPalette(colours);
      frame_.setFrameStyle(QFrame::Box | QFrame::Plain);
    } else if (event->type() == QEvent::FocusOut) {
      frame_.setPalette({});
      frame_.setFrameStyle(plain_);
    }
    return false;
  }

 private:
  QFrame& frame_;
  int plain_;
};

}  // namespace

void ShowFocusOnBorder(QFrame& frame) { new Border(frame); }

}  // namespace quorvane::qt
