#include "bench/Measure.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <sys/resource.h>

namespace quorvane::bench {

double Watch::Now() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Median(std::vector<double> results) {
  const auto middle = results.begin() + static_cast<std::ptrdiff_t>(results.size() / 2);
  std::nth_element(results.begin(), middle, results.end());
  return *middle;
}

bool Print(const std::vector<Row>& rows) {
  std::printf("| What | Students | Statements | Module, ms | Plain, ms | Ratio | Limit |\n");
  std::printf("|---|---|---|---|---|---|---|\n");
  auto within = true;
  for (const auto& row : rows) {
    std::printf("| %s | %d | %zu | %.3f |", row.what.c_str(), row.students, row.statements,
                row.module * 1e3);
    if (row.plain == 0) {
      std::printf(" | | |\n");
      continue;
    }
    const auto ratio = row.module / row.plain;
    std::printf(" %.3f | %.2f |", row.plain * 1e3, ratio);
    if (row.limit == 0) {
      std::printf(" |\n");
    } else {
      within = within && ratio <= row.limit;
      std::printf(" %.1f%s |\n", row.limit, ratio <= row.limit ? "" : " EXCEEDED");
    }
  }
  return within;
}

double PeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace quorvane::bench
