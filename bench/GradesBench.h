#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "bench/BenchSchool.h"
#include "bench/Measure.h"

namespace quorvane::bench {

/// For each of the eight grade forms on the measured section: opening it, from its load until
/// the user can act, moving to the next entry, opening a cell's list, and
/// saving, until step one is back.
std::vector<Row> MeasureGrades(const BenchSchool& school, int students);

/// Opens and saves one of those forms so many times and does nothing else: for a profiler. False
/// when there is no form of that name.
bool PlayAlone(const BenchSchool& school, const std::string& form, std::size_t runs);

}  // namespace quorvane::bench
