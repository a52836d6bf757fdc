#pragma once

#include <vector>

#include "bench/BenchSchool.h"
#include "bench/Measure.h"

namespace quorvane::bench {

/// Loading the register of the measured section, saving it with every subject changed, and apart
/// from both the two purges that go over whole tables.
std::vector<Row> MeasureRegister(const BenchSchool& school, int students);

}  // namespace quorvane::bench
