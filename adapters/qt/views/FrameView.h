#pragma once

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/Frame.h"

class QGroupBox;

namespace quorvane::qt {

/// A group box; a frame without caption shows no border.
class FrameView : public ControlView {
 public:
  FrameView(FormWindow& window, Frame& frame);

 protected:
  void Show() override;

 private:
  Frame& frame_;
  QGroupBox* box_;
};

}  // namespace quorvane::qt
