#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "bench/GradesPlayer.h"
#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// What playing one of the nine screens on a `BenchSchool` has shown.
struct ScreenPlay {
  std::vector<RecordedStatement> purging{};  ///< of the register alone: over whole tables
  std::vector<RecordedStatement> opening{};
  std::vector<RecordedStatement> saving{};
  std::size_t openCount = 0;  ///< of the meter, the purges included
  std::size_t saveCount = 0;
  std::vector<double> purges{};  ///< wall time of each run, in seconds
  std::vector<double> opens{};   ///< without the purges
  std::vector<double> saves{};
};

/// The register and the eight grade forms, by the names of the reports.
const std::vector<std::string>& ScreenNames();

/// Opens and saves that screen once for its statements and its counts, and after that so many times
/// for the clock; without any more runs, that one's time is told.
ScreenPlay PlayScreen(std::size_t screen, const SchoolAddress& school, std::size_t runs,
                      const Meter& meter = {});

}  // namespace quorvane::bench
