#pragma once

#include <string>

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/CommandButton.h"

class QPushButton;

namespace quorvane::qt {

class ButtonView : public ControlView {
 public:
  ButtonView(FormWindow& window, CommandButton& button);

  /// Esc presses it.
  [[nodiscard]] bool Cancels() const noexcept { return button_.Cancel; }
  /// Shows that there is something to save by it.
  void Mark();
  /// As a click does.
  void Press();

 protected:
  void Show() override;

 private:
  CommandButton& button_;
  QPushButton* push_;
  std::string picture_;
};

}  // namespace quorvane::qt
