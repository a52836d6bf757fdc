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
  Member(int number, const CrowdOptions& options, SchoolAddress school, const std::string& journal);

  void Play(std::chrono::seconds time);

  void Loading(Form& form) override;
  void Opened(Form& form) override;
  void Accepting(const Form& /*form*/) override {}
  void Settle() override;
  void Told(const std::string& text) override;

 private:
  [[nodiscard]] bool OpenProgram();
  void UseProgram();
  void OpenScreen();
  void CountError(const RuntimeError& error);
  void Recover(const RuntimeError& error);
  void GradeForeignSubject();

  int number_;
  Fault fault_;
  int pause_;
  int users_;
  SchoolAddress school_;
  Journal journal_;
  Figures figures_;
  Prng random_;
  History history_;
  RandomUser user_;
  RandomHost host_;
  Clock::time_point until_;
  std::unique_ptr<CrowdConnection> centro_;
  std::unique_ptr<Connection> borrado_;  ///< as in the programs: opened when used
  std::unique_ptr<CrowdConnection> entrada_;
};

}  // namespace quorvane::test
