#pragma once

#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace quorvane {

/// A titled group; the controls that stand on it go and come with it.
class Frame : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "Frame"; }

  [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption) { Assign(caption_, std::move(caption)); }

 private:
  std::string caption_;
};

}  // namespace quorvane
