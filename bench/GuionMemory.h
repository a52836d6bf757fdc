#pragma once

#include <string>

#include "bench/BenchSchool.h"

namespace quorvane::bench {

/// The most memory, in MiB, that quorvane-guion takes to open and save the register of the measured
/// section and its grades by student. `program` is its path; 0 when it can't be run.
double GuionMemory(const std::string& program, const BenchSchool& school);

}  // namespace quorvane::bench
