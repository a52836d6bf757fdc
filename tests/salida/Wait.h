#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace quorvane::test {

/// Waits for what another process brings about. False when it takes longer than any machine needs.
inline bool WaitUntil(const std::function<bool()>& done) {
  using namespace std::chrono_literals;
  constexpr auto kPatience = 30s;
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(20ms);
  }
  return true;
}

}  // namespace quorvane::test
