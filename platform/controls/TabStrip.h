#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace quorvane {

/// A row of tabs, counted from 1, of which one is selected as long as there are any.
class TabStrip : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "TabStrip"; }

  void AddTab(std::string caption);
  void RemoveTab(int index);  ///< error 381 for a tab that doesn't exist
  [[nodiscard]] int TabCount() const noexcept { return static_cast<int>(tabs_.size()); }
  [[nodiscard]] const std::string& TabCaption(int index) const;  ///< error 381, as above

  /// The selected tab; 0 without tabs.
  [[nodiscard]] int SelectedTab() const noexcept { return selected_; }
  /// Selects and raises `Click`. Error 380 for a tab that doesn't exist.
  void SelectedTab(int index);

  std::function<void()> Click;

 private:
  std::vector<std::string> tabs_;
  int selected_ = 0;
};

}  // namespace quorvane
