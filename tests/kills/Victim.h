#pragma once

#include <cstdint>
#include <string>

namespace quorvane::test {

/// Somebody at random on all screens of that school, who tells of each statement and goes on until
/// he is killed. To be called in a process of its own.
[[noreturn]] void BeVictim(const std::string& school, std::uint64_t seed, int in, bool fault);

/// Holds the school open without doing anything, until it is killed: another user's program.
[[noreturn]] void BeBystander(const std::string& school, int in);

}  // namespace quorvane::test
