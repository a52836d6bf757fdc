#pragma once

#include <functional>
#include <map>
#include <queue>
#include <string>

#include "platform/host/FrontEnd.h"

namespace quorvane::bench {

/// A screen without pictures whose user does what he was told beforehand, form by form.
class BenchScreen : public FrontEnd {
 public:
  using Gesture = std::function<void(Form& form)>;

  /// The next thing that the user does on a form of that name.
  void On(const std::string& form, Gesture gesture);

  /// Called when a form is about to load.
  std::function<void(const Form& form)> OnLoading;

  void Loading(Form& form) override {
    if (OnLoading) OnLoading(form);
  }
  /// Error 5 when a form waits for a gesture that nobody gave.
  void RunModal(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
  void Beep() override {}
  void MousePointer(Pointer /*pointer*/) override {}
  std::int32_t TextWidth(const Form& form, const std::string& text) override;
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 28800; }
  std::int32_t ScreenHeight() override { return 16200; }

 private:
  std::map<std::string, std::queue<Gesture>> gestures_;
};

}  // namespace quorvane::bench
