#include "adapters/qt/views/FrameView.h"

#include <QGroupBox>

#include "adapters/qt/views/Units.h"

namespace quorvane::qt {
namespace {

class GroupBox : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (!title().isEmpty()) QGroupBox::paintEvent(event);
  }
};

}  // namespace

FrameView::FrameView(FormWindow& window, Frame& frame)
    : ControlView(window, frame), frame_(frame), box_(new GroupBox(Surface())) {
  Use(box_);
}

void FrameView::Show() { box_->setTitle(Text(frame_.Caption())); }

}  // namespace quorvane::qt
