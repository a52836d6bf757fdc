#pragma once

#include <sys/types.h>
#include <vector>

namespace quorvane::test {

/// Keeps every core of the machine busy as long as it lives, with processes of its own.
class BusyCores {
 public:
  BusyCores();
  ~BusyCores();
  BusyCores(BusyCores&&) = delete;

 private:
  std::vector<pid_t> spinning_;
};

}  // namespace quorvane::test
