#pragma once

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/CheckBox.h"

class QCheckBox;

namespace quorvane::qt {

class CheckView : public ControlView {
 public:
  CheckView(FormWindow& window, CheckBox& check);

 protected:
  void Show() override;

 private:
  CheckBox& check_;
  QCheckBox* box_;
};

}  // namespace quorvane::qt
