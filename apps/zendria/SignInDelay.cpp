#include "apps/zendria/SignInDelay.h"

#include <algorithm>
#include <utility>

#include "apps/zendria/Preferences.h"

namespace quorvane::zendria {
namespace {

constexpr int kFree = 2;
constexpr std::chrono::seconds kFirst(30);
constexpr std::chrono::seconds kMost(15 * 60);
constexpr int kMostDoublings = 5;

std::chrono::seconds WaitAfter(int failures) {
  if (failures <= kFree) return {};
  const auto doublings = std::min(failures - kFree - 1, kMostDoublings);
  return std::min(kMost, kFirst * (1 << doublings));
}

}  // namespace

SignInDelay::SignInDelay(Preferences& preferences, QString school, Clock now)
    : preferences_(preferences), school_(std::move(school)), now_(std::move(now)) {}

std::chrono::seconds SignInDelay::Left() {
  const auto failures = preferences_.FailedSignIns(school_);
  const auto wait = WaitAfter(failures.count);
  const auto now = now_();
  const auto waited = std::chrono::seconds(failures.last.secsTo(now));
  if (failures.count > 0 && waited.count() < 0) {
    // A clock that was put back must not shut anybody out for longer than the wait is: it begins
    // again by the clock as it goes now.
    preferences_.KeepFailedSignIns(school_, {failures.count, now});
    return wait;
  }
  return std::max(std::chrono::seconds(0), wait - waited);
}

void SignInDelay::Failed() {
  const auto failures = preferences_.FailedSignIns(school_);
  preferences_.KeepFailedSignIns(school_, {failures.count + 1, now_()});
}

void SignInDelay::Succeeded() { preferences_.KeepFailedSignIns(school_, {}); }

}  // namespace quorvane::zendria
