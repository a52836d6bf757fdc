#pragma once

#include <string>

#include "adapters/qt/window/QtFrontEnd.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/Shows.h"

namespace quorvane::test {

/// The dialogs on a screen, with somebody who looks on. It is the application's front end as long
/// as it lives.
class WatchedScreen : public qt::QtFrontEnd {
 public:
  explicit WatchedScreen(History& history);
  ~WatchedScreen() override;
  WatchedScreen(WatchedScreen&&) = delete;

  /// Who looks on from now on; needed before the first form opens, and outlives its use here.
  void UseOnlooker(Onlooker& onlooker) noexcept { onlooker_ = &onlooker; }

  void RunModal(Form& form) override;
  void Loading(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
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
