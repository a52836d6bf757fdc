#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <thread>

#include "apps/escuela/Prng.h"
#include "tests/servidor/faults/FaultConnection.h"
#include "tests/servidor/faults/FaultFigures.h"
#include "tests/servidor/faults/FaultOptions.h"
#include "tests/support/TcpProxy.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"

namespace quorvane::test {

/// Lets the server or the network fail at random statements of random sessions, one after the
/// other on one school, and looks each time at what the user was told and what is left: every
/// statement that had come back is there and nothing else but the one in flight, the locks that are
/// left have a name, and the same connections open the next screen.
class Faults {
 public:
  /// `seed` is this process's own.
  Faults(const FaultOptions& options, std::uint64_t seed);
  ~Faults();
  Faults(const Faults&) = delete;
  Faults& operator=(const Faults&) = delete;
  Faults(Faults&&) = delete;
  Faults& operator=(Faults&&) = delete;

  /// That many. Throws a runtime error of the language when something is wrong.
  FaultFigures Run(int times);

 private:
  class Nobody : public Onlooker {
   public:
    void Opened(Form& /*form*/) override {}
    void Accepting(const Form& /*form*/) override {}
    void Settle() override {}
  };

  void One();
  void Draw();
  void PlayUntilLost();
  void Told(const std::string& statement);
  void Strike();
  void StrikeAgain();
  void CheckError();
  void BringBack();
  void CompareRows();
  void RemoveLocks();
  void OpenAgain();
  void Later(const std::function<void()>& work);

  FaultOptions options_;
  Prng random_;
  TcpProxy proxy_;
  std::string school_;
  std::string alike_;  ///< holds what is known to be in the school
  FaultDiary diary_;
  FaultConnection centro_;
  FaultConnection borrado_;
  FaultConnection entrada_;
  History history_;
  Nobody nobody_;
  RandomUser user_;
  RandomHost host_;
  FaultFigures figures_;
  std::thread later_;
  int untilFault_ = 0;
  bool whileWriting_ = false;
  bool whilePublishing_ = false;
  bool publishes_ = false;
  bool struck_ = false;
  int process_ = 0;  ///< the server's for the connection, when the fault struck
};

}  // namespace quorvane::test
