#pragma once

#include <QString>
#include <QTimer>
#include <cstdint>
#include <map>
#include <string>

#include "apps/escuela/Prng.h"
#include "tests/ventana/HastyHands.h"
#include "tests/ventana/InputQueue.h"
#include "tests/ventana/ScreenWatch.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/History.h"

namespace quorvane::test {

/// Somebody at the keyboard and the mouse, at any speed: one gesture and a look at what it did, or
/// many at once, also while a form loads or saves. He acts as long as a form is shown.
class HastyUser {
 public:
  HastyUser(Prng& random, WatchedScreen& screen, History& history);

  /// Who looks on from now on; outlives its use here.
  void UseWatch(ScreenWatch& watch) noexcept { watch_ = &watch; }
  /// So many gestures more; then he closes all that is open.
  void PlayFor(std::uint64_t gestures);
  /// The module executes a statement: he doesn't wait for its end.
  void Interrupt();

  [[nodiscard]] std::uint64_t Gestures() const noexcept { return gestures_; }
  /// How often a text that is no grade has held him back.
  [[nodiscard]] std::uint64_t Refusals() const noexcept { return refusals_; }
  /// How many of them on each form.
  [[nodiscard]] const std::map<std::string, std::uint64_t>& GesturesByForm() const noexcept {
    return byForm_;
  }

 private:
  void Tick();
  void Look();
  void ActOnce(QWidget& front, const qt::FormWindow& window);
  void Act(QWidget& front, const qt::FormWindow& window);
  void Leave(QWidget& front, const qt::FormWindow& window);
  void Note(const qt::FormWindow& window, const HastyHands::Deed& deed, const char* how);
  /// What was typed into a list and then left by that click is taken, or holds the user back.
  void ExpectTyped(const qt::FormWindow& window, const HastyHands::Deed& deed);

  Prng& random_;
  WatchedScreen& screen_;
  History& history_;
  InputQueue queue_;
  HastyHands hands_{random_, queue_};
  ScreenWatch* watch_ = nullptr;
  QTimer turn_;
  int quiet_ = 0;  ///< turns since nothing waits any more
  std::uint64_t sinceLook_ = 0;
  std::uint64_t gestures_ = 0;
  std::map<std::string, std::uint64_t> byForm_;
  std::uint64_t until_ = 0;
  QString refused_;  ///< typed, fits no grade, and left by the last click
  std::uint64_t refusals_ = 0;
  int leaving_ = 0;  ///< tries to close what is open
};

}  // namespace quorvane::test
