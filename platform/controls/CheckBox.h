#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace quorvane {

/// A check box: value 0 or 1. Setting another value than it has raises `Click`, whoever sets it.
class CheckBox : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "CheckBox"; }

  [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption) { Assign(caption_, std::move(caption)); }

  [[nodiscard]] int Value() const noexcept { return value_; }
  void Value(int value);  ///< error 380 for other values than 0 and 1

  std::function<void()> Click;

 private:
  std::string caption_;
  int value_ = 0;
};

}  // namespace quorvane
