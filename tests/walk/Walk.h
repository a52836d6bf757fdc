#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "apps/escuela/Prng.h"
#include "platform/RuntimeError.h"
#include "tests/walk/History.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"
#include "tests/walk/School.h"
#include "tests/walk/WalkOptions.h"
#include "tests/walk/Watch.h"

namespace quorvane::test {

/// Random gestures over all screens of the module, on one random school after the other. An error
/// is part of it: schools are odd and statements are made to fail. But then all forms are dropped,
/// what the dead one held is removed, and every screen has to open again.
class Walk {
 public:
  /// `history` outlives the walk.
  Walk(const WalkOptions& options, History& history);

  /// On schools in that database, both of whose connections outlive the walk.
  void OnServer(const ServerPlace& place) { place_.emplace(place); }
  /// What a statement leaves unordered comes as from a server.
  void OrderRows() noexcept { ordered_ = true; }

  /// Returns at its end, with everything as it should be. `Violation` when it isn't.
  void Run();

  /// What was done, for whoever reads the test's output.
  void Report(std::ostream& out) const;
  [[nodiscard]] std::uint64_t Gestures() const noexcept { return user_.Gestures(); }

 private:
  void NewSchool();
  [[nodiscard]] int AnyUser();
  void OpenScreen();
  void Recover(int node, const RuntimeError& error);
  void RemoveLeftovers();
  void OpenAllScreens();

  WalkOptions options_;
  std::optional<ServerPlace> place_;
  bool ordered_ = false;
  Prng random_;
  History& history_;
  RandomUser user_;
  RandomHost host_;
  std::unique_ptr<School> school_;
  std::unique_ptr<Watch> watch_;
  std::uint64_t nextSchool_ = 0;  ///< when that many gestures have been made
  std::uint64_t schools_ = 0;
  std::uint64_t screens_ = 0;
  std::map<std::string, std::uint64_t> errors_;
};

}  // namespace quorvane::test
