#pragma once

#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace quorvane {

/// A text that the user reads.
class Label : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "Label"; }

  [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption) { Assign(caption_, std::move(caption)); }

  /// What a pointer that rests on the label shows; the host keeps the whole of a cut text here.
  [[nodiscard]] const std::string& ToolTipText() const noexcept { return toolTipText_; }
  void ToolTipText(std::string text) { Assign(toolTipText_, std::move(text)); }

 private:
  std::string caption_;
  std::string toolTipText_;
};

}  // namespace quorvane
