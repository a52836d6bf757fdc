#include "adapters/odbc/Waiting.h"

#include <chrono>
#include <future>
#include <utility>

#include "adapters/odbc/SilenceWatch.h"

namespace quorvane::odbc {
namespace {

constexpr std::chrono::milliseconds kMoment{300};
constexpr std::chrono::milliseconds kBetween{40};

std::function<bool()>& Meanwhile() {
  static std::function<bool()> meanwhile;
  return meanwhile;
}

}  // namespace

void WhileWaiting(std::function<bool()> meanwhile) { Meanwhile() = std::move(meanwhile); }

void Wait(const std::function<void()>& work) {
  if (!Meanwhile()) return work();
  auto done = std::async(std::launch::async, work);
  for (auto rest = kMoment; done.wait_for(rest) != std::future_status::ready; rest = kBetween)
    if (Meanwhile()()) SilenceWatch::Hurry();
  done.get();
}

}  // namespace quorvane::odbc
