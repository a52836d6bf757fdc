#pragma once

#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "bench/GradesPlayer.h"
#include "bench/Measure.h"
#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// One opening of the register and the saving of all that it holds.
struct RegisterTimes {
  Time purge;  ///< of the opening's first two statements, which go over whole tables
  Time load;   ///< of the rest
  Time save;
  std::size_t loadCount = 0;  ///< of the meter, the purges included
  std::size_t saveCount = 0;
  std::vector<RecordedStatement> purging{};
  std::vector<RecordedStatement> loading{};
  std::vector<RecordedStatement> saving{};
};

/// In a session of its own, on a `BenchSchool`. What it executes is told when it is to `record`.
RegisterTimes PlayRegister(const SchoolAddress& school, bool record, const Meter& meter = {});

}  // namespace quorvane::bench
