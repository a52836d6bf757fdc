#pragma once

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace quorvane::test {

/// Keeps every core of the machine busy as long as it lives, with processes of its own.
class BusyCores {
 public:
  explicit BusyCores(unsigned processesEach = 1) {
    const auto cores = std::max(1U, std::thread::hardware_concurrency());
    for (unsigned process = 0; process < processesEach * cores; ++process) {
      const auto child = fork();
      if (child == 0) Spin();
      if (child > 0) spinning_.push_back(child);
    }
  }
  ~BusyCores() {
    for (const auto child : spinning_) {
      kill(child, SIGKILL);
      waitpid(child, nullptr, 0);
    }
  }
  BusyCores(BusyCores&&) = delete;

 private:
  [[noreturn]] static void Spin() {
    // Not beyond the test, however that ends.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (volatile unsigned turns = 0;;) turns = turns + 1;
  }

  std::vector<pid_t> spinning_;
};

}  // namespace quorvane::test
