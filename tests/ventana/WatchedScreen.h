#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "adapters/qt/window/QtFrontEnd.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"

namespace quorvane::test {

/// The dialogs on a screen, with somebody who looks on. It is the application's front end as long
/// as it lives.
class WatchedScreen : public qt::QtFrontEnd {
 public:
  explicit WatchedScreen(History& history);
  ~WatchedScreen() override;
  WatchedScreen(const WatchedScreen&) = delete;
  WatchedScreen& operator=(const WatchedScreen&) = delete;
  WatchedScreen(WatchedScreen&&) = delete;
  WatchedScreen& operator=(WatchedScreen&&) = delete;

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
  /// How many shows run.
  [[nodiscard]] std::size_t Depth() const noexcept { return depth_; }
  [[nodiscard]] std::size_t Deepest() const noexcept { return deepest_; }
  /// How often each form has been shown.
  [[nodiscard]] const std::map<std::string, std::uint64_t>& Shows() const noexcept {
    return shown_;
  }
  /// The form that was shown or loaded last.
  [[nodiscard]] const std::string& LastForm() const noexcept { return lastForm_; }

 private:
  History& history_;
  Onlooker* onlooker_ = nullptr;
  const qt::FormWindow* ready_ = nullptr;
  std::size_t depth_ = 0;
  std::size_t deepest_ = 0;
  std::map<std::string, std::uint64_t> shown_;
  std::string lastForm_;
};

}  // namespace quorvane::test
