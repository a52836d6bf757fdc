#include "adapters/qt/views/AnimationView.h"

#include "adapters/qt/window/BusySign.h"

namespace quorvane::qt {

AnimationView::AnimationView(FormWindow& window, Animation& animation)
    : ControlView(window, animation), animation_(animation), sign_(new BusySign(Surface())) {
  Use(sign_);
}

void AnimationView::Show() { sign_->Run(animation_.Playing()); }

}  // namespace quorvane::qt
