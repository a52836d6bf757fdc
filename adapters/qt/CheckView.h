#pragma once

#include "adapters/qt/ControlView.h"
#include "platform/CheckBox.h"

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
