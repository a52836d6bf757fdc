#pragma once

#include <cstdint>
#include <string>

namespace quorvane::test {

struct KillOptions {
  int times = 200;
  std::uint64_t seed = 1;
  std::string folder;  ///< where the school is; that for temporary files when empty
  bool fault = false;  ///< the victims tell of a write that they haven't done, now and then
};

}  // namespace quorvane::test
