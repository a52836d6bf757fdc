#pragma once

#include <functional>
#include <string>

#include "platform/controls/Control.h"

namespace quorvane {

/// A line of text. Setting another text than it has raises `Change`, whoever sets it.
class TextBox : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "TextBox"; }

  [[nodiscard]] const std::string& Text() const noexcept { return text_; }
  void Text(const std::string& text);

  std::function<void()> Change;
  /// A key is about to be typed: its character code, which the handler sets to 0 to drop it.
  std::function<void(int& keyAscii)> KeyPress;

  /// The user types one character (UTF-8) at the end: `KeyPress`, then, unless dropped, `Change`.
  void TypeKey(const std::string& character);

 private:
  std::string text_;
};

}  // namespace quorvane
