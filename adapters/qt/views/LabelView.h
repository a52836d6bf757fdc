#pragma once

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/Label.h"

class QLabel;

namespace quorvane::qt {

class LabelView : public ControlView {
 public:
  LabelView(FormWindow& window, Label& label);

 protected:
  void Show() override;

 private:
  Label& label_;
  QLabel* text_;
};

}  // namespace quorvane::qt
