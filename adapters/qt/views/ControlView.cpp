#include "adapters/qt/views/ControlView.h"

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::qt {

ControlView::ControlView(FormWindow& window, Control& control)
    : window_(window), control_(control) {}

void ControlView::Use(QWidget* widget) {
  widget_ = widget;
  widget->setObjectName(Text(control_.Name()));
}

QWidget* ControlView::Surface() const { return window_.Surface(control_.Container()); }

void ControlView::Sync() {
  if (flags_ != control_.Revision() || !shown_) {
    flags_ = control_.Revision();
    widget_->setVisible(control_.Visible());
    widget_->setEnabled(control_.Enabled());
  }
  if (Frozen() || (shown_ && revision_ == control_.Revision())) return;
  revision_ = control_.Revision();
  shown_ = true;
  showing_ = true;
  Show();
  showing_ = false;
}

void ControlView::Place(const QRect& room) {
  if (widget_->geometry() != room) widget_->setGeometry(room);
}

void ControlView::Gesture(const std::function<void()>& handler) {
  if (showing_) return;
  window_.FrontEnd().Gesture(window_, [this, &handler] {
    if (control_.Usable()) handler();
  });
}

}  // namespace quorvane::qt
