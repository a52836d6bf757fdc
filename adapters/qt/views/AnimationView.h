#pragma once

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/Animation.h"

namespace quorvane::qt {

class BusySign;

/// A busy sign of its own in the place of the file that the form names.
class AnimationView : public ControlView {
 public:
  AnimationView(FormWindow& window, Animation& animation);

 protected:
  void Show() override;

 private:
  Animation& animation_;
  BusySign* sign_;
};

}  // namespace quorvane::qt
