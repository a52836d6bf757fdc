#include "adapters/qt/AnimationView.h"

#include "adapters/qt/BusySign.h"

namespace quorvane::qt {

AnimationView::AnimationView(FormWindow& window, Animation& animation)
    : ControlView(window, animation), animation_(animation), sign_(new BusySign(Surface())) {
  Use(sign_);
}

void AnimationView::Show() { sign_->Run(animation_.Playing()); }

}  // namespace quorvane::qt
