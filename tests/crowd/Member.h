#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/RuntimeError.h"
#include "tests/crowd/CrowdConnection.h"
#include "tests/crowd/CrowdOptions.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"

namespace quorvane::test {

/// One process of the crowd: somebody who starts the program, opens screens, grades, saves or
/// leaves, closes the program and starts it again until the time is over. An error that comes out
/// is shown to him, the forms go, and he goes on. A process has one of them.
class Member : public Onlooker {
 public:
  using Clock = std::chrono::steady_clock;

  /// `number` from 1. The school is there; the journal is made.
  /// `faults` is shared with the others, and outlives it.
  Member(int number, const CrowdOptions& options, FaultCount& faults, SchoolAddress school,
         const std::string& journal);

  /// Where something is done wrong on purpose it goes on until that has been done often enough, a
  /// minute at most.
  void Play(std::chrono::seconds time);

  void Loading(Form& form) override;
  void Opened(Form& form) override;
  void Accepting(const Form& /*form*/) override {}
  void Settle() override;
  void Told(const std::string& text) override;

 private:
  [[nodiscard]] bool IsOver() const;
  [[nodiscard]] bool OpenProgram();
  void UseProgram();
  void OpenScreen();
  void Busy();
  void CountError(const RuntimeError& error);
  void Recover(const RuntimeError& error);
  void GradeForeignSubject();

  int number_;
  Fault fault_;
  FaultCount& faults_;
  int pause_;
  bool isWrong_;  ///< one of the processes does something wrong on purpose
  int users_;
  SchoolAddress school_;
  Journal journal_;
  Figures figures_;
  Prng random_;
  History history_;
  RandomUser user_;
  RandomHost host_;
  Clock::time_point until_;
  Clock::time_point latest_;  ///< however seldom it has been done wrong
  std::unique_ptr<CrowdConnection> centro_;
  std::unique_ptr<Connection> borrado_;  ///< as in the programs: opened when used
  std::unique_ptr<CrowdConnection> entrada_;
};

}  // namespace quorvane::test
