#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "apps/escuela/Prng.h"
#include "platform/host/FrontEnd.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/Shows.h"

namespace quorvane::test {

struct Gesture;

/// The dialogs without a screen, in the hands of a user who does what he can and not what he
/// should. It is the application's front end as long as it lives.
class RandomUser : public FrontEnd {
 public:
  RandomUser(Prng& random, History& history);
  ~RandomUser() override;
  RandomUser(RandomUser&&) = delete;

  /// Who looks on from now on; outlives its use here.
  void UseOnlooker(Onlooker& onlooker) noexcept { onlooker_ = &onlooker; }
  /// Closes each window as soon as it opens, from now on or no longer.
  void OnlyCloses(bool only) noexcept { onlyCloses_ = only; }
  /// Stops playing and closes all after that many gestures.
  void Limit(std::uint64_t gestures) noexcept { limit_ = gestures; }

  [[nodiscard]] std::uint64_t Gestures() const noexcept { return gestures_; }
  [[nodiscard]] const Shows& Shown() const noexcept { return shows_; }

  void RunModal(Form& form) override;
  void Loading(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
  void Beep() override {}
  void MousePointer(Pointer /*pointer*/) override {}
  std::int32_t TextWidth(const Form& form, const std::string& text) override;
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 15360; }
  std::int32_t ScreenHeight() override { return 11520; }

 private:
  [[nodiscard]] Gesture Choose(Form& form);

  Prng& random_;
  History& history_;
  Onlooker nobody_;
  Onlooker* onlooker_ = &nobody_;
  bool onlyCloses_ = false;
  std::uint64_t limit_ = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t gestures_ = 0;
  Shows shows_;
};

}  // namespace quorvane::test
