#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace quorvane {

/// A button, with a caption, a picture or both.
class CommandButton : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "CommandButton"; }

  [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption) { Assign(caption_, std::move(caption)); }

  /// The file of its picture, as the form's code names it; empty for none.
  [[nodiscard]] const std::string& Picture() const noexcept { return picture_; }
  void Picture(std::string file) { Assign(picture_, std::move(file)); }

  /// Pressed by Enter, wherever the keyboard is; pressed by Esc. At most one of each on a form.
  bool Default = false;
  bool Cancel = false;

  std::function<void()> Click;

  /// The user presses it. The caller has made sure that he can.
  void Press() {
    if (Click) Click();
  }

 private:
  std::string caption_;
  std::string picture_;
};

}  // namespace quorvane
