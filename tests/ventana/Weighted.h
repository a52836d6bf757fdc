#pragma once

#include <cstddef>
#include <numeric>

#include "apps/escuela/Prng.h"

namespace quorvane::test {

/// One of the things, which have weights above 0, drawn by these.
template <class Things, class Weight>
const auto& Weighted(Prng& random, const Things& things, Weight weight) {
  const auto total =
      std::accumulate(things.begin(), things.end(), 0,
                      [&weight](int sum, const auto& thing) { return sum + weight(thing); });
  auto left = static_cast<int>(random.Below(static_cast<std::size_t>(total)));
  for (const auto& thing : things) {
    left -= weight(thing);
    if (left < 0) return thing;
  }
  return things.back();
}

}  // namespace quorvane::test
