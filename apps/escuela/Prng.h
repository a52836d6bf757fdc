#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvane {

/// A small generator of numbers, the same for the same seed with every compiler and library, which
/// the standard distributions are not.
class Prng {
 public:
  explicit Prng(std::uint64_t seed) : state_(seed) {}

  /// A number from 0 to `count` - 1; `count` is above 0.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Next() % count); }

  bool Chance(std::size_t percent) { return Below(100) < percent; }

  /// One of the things of an array or vector that isn't empty.
  template <typename Things>
  const auto& OneOf(const Things& things) {
    return things[Below(things.size())];
  }

 private:
  std::uint64_t Next() {
    auto mixed = state_ += 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  std::uint64_t state_;
};

}  // namespace quorvane
