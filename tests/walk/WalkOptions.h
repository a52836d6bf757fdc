#pragma once

#include <cstdint>
#include <string>

namespace quorvane::test {

struct WalkOptions {
  std::uint64_t gestures = 100'000;
  std::uint64_t seed = 1;
  std::string odbc;   ///< of a database without tables; the school is in memory when empty
  std::string owner;  ///< the same as who makes the tables
};

}  // namespace quorvane::test
