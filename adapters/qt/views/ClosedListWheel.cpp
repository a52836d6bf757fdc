#include "adapters/qt/views/ClosedListWheel.h"

#include <QComboBox>
#include <QEvent>

namespace quorvane::qt {
namespace {

class WheelPasses : public QObject {
 public:
  explicit WheelPasses(QComboBox& box) : QObject(&box) { box.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    event->ignore();
    return true;
  }
};

}  // namespace

void LeaveWheelOf(QComboBox& box) { new WheelPasses(box); }

}  // namespace quorvane::qt
