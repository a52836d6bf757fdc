#include "bench/Measure.h"

#include <algorithm>
#include <ctime>
#include <sys/resource.h>

namespace quorvane::bench {
namespace {

double Read(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

Time Watch::Now() { return {Read(CLOCK_PROCESS_CPUTIME_ID), Read(CLOCK_MONOTONIC)}; }

Time Watch::Passed() const {
  const auto now = Now();
  return {now.processor - start_.processor, now.wall - start_.wall};
}

double Quartile(std::vector<double> results) {
  const auto quarter = results.begin() + static_cast<std::ptrdiff_t>(results.size() / 4);
  std::nth_element(results.begin(), quarter, results.end());
  return *quarter;
}

Time Quartile(const std::vector<Time>& results) {
  std::vector<double> processor, wall;
  for (const auto& result : results) {
    processor.push_back(result.processor);
    wall.push_back(result.wall);
  }
  return {Quartile(std::move(processor)), Quartile(std::move(wall))};
}

double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace quorvane::bench
