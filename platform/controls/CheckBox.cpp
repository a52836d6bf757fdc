#include "platform/controls/CheckBox.h"

#include "platform/RuntimeError.h"

namespace quorvane {

void CheckBox::Value(int value) {
  if (value != 0 && value != 1) throw RuntimeError(ErrorNumber::InvalidProperty);
  if (value == value_) return;
  Assign(value_, value);
  if (Click) Click();
}

}  // namespace quorvane
