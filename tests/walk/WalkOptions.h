#pragma once

#include <cstdint>

namespace quorvane::test {

struct WalkOptions {
  std::uint64_t gestures = 100'000;
  std::uint64_t seed = 1;
};

}  // namespace quorvane::test
