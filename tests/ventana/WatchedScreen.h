#pragma once

#include <optional>
#include <string>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "platform/host/Application.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/Shows.h"

namespace quorvane::test {

/// The dialogs on a screen, with somebody who looks on. It is the application's front end as long
/// as it lives.
class WatchedScreen : public qt::QtFrontEnd {
 public:
  explicit WatchedScreen(History& history) : history_(history) {
    Application::Instance().UseScreen(this);
    // Asked when the form's own loading is over, before the user's turn.
    RecallSize = [this](const qt::FormWindow& window) -> std::optional<QSize> {
      ready_ = &window;
      return std::nullopt;
    };
  }
  ~WatchedScreen() override { Application::Instance().UseScreen(nullptr); }
  WatchedScreen(WatchedScreen&&) = delete;

  /// Who looks on from now on; needed before the first form opens, and outlives its use here.
  void UseOnlooker(Onlooker& onlooker) noexcept { onlooker_ = &onlooker; }

  void RunModal(Form& form) override {
    const Shows::Running running(shows_, form.Name());
    ready_ = nullptr;
    history_.Add("muestra " + form.Name());
    onlooker_->Opened(form);
    QtFrontEnd::RunModal(form);
    ready_ = nullptr;
    onlooker_->Settle();
  }
  void Loading(Form& form) override {
    shows_.Touch(form.Name());
    onlooker_->Loading(form);
  }
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override {
    history_.Add("mensaje " + text);
    onlooker_->Told(text);
    QtFrontEnd::Message(icon, title, text);
  }
  void Beep() override {}

  /// The grade form on the screen has loaded all that it shows.
  [[nodiscard]] bool Ready() const noexcept {
    return ready_ != nullptr && ready_ == ActiveWindow();
  }
  [[nodiscard]] const Shows& Shown() const noexcept { return shows_; }

 private:
  History& history_;
  Onlooker* onlooker_ = nullptr;
  const qt::FormWindow* ready_ = nullptr;
  Shows shows_;
};

}  // namespace quorvane::test
