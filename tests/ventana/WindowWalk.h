#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "apps/escuela/Prng.h"
#include "platform/RuntimeError.h"
#include "tests/ventana/HastyUser.h"
#include "tests/ventana/ScreenWatch.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/History.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/School.h"
#include "tests/walk/WalkOptions.h"

namespace quorvane::test {

/// A user in a hurry on the module's real windows, on one school after the other: the sample
/// school, where nothing may fail, and random ones, where the school explains an error.
class WindowWalk {
 public:
  /// `history` outlives the walk.
  WindowWalk(const WalkOptions& options, History& history);

  /// Returns at its end, with every form seen and everything as it should be. `Violation` when it
  /// isn't.
  void Run();

  /// What was done, for whoever reads the test's output.
  void Report(std::ostream& out) const;
  [[nodiscard]] std::uint64_t Gestures() const noexcept { return user_.Gestures(); }

 private:
  void NewSchool();
  void OpenScreen();
  void Recover(int node, const RuntimeError& error);
  [[nodiscard]] bool Explains(const RuntimeError& error) const;
  void CountChecks();
  /// A form that has been shown on none of the screens; none when all have.
  [[nodiscard]] std::optional<std::string_view> FormNotSeen() const;

  WalkOptions options_;
  Prng random_;
  History& history_;
  WatchedScreen screen_;
  HastyUser user_;
  RandomHost host_;
  std::unique_ptr<School> school_;
  std::unique_ptr<ScreenWatch> watch_;
  bool sample_ = false;
  std::string lastStatement_;
  std::uint64_t nextSchool_ = 0;  ///< when that many gestures have been made
  std::uint64_t schools_ = 0;
  std::uint64_t screens_ = 0;
  std::uint64_t saves_ = 0;
  std::uint64_t leftTyped_ = 0;
  std::uint64_t reopened_ = 0;
  std::map<std::string, std::uint64_t> errors_;
};

}  // namespace quorvane::test
