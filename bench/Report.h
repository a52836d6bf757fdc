#pragma once

#include <vector>

#include "bench/Measure.h"
#include "bench/StatementCost.h"

namespace quorvane::bench {

/// What quorvane-guion has needed at most on a school.
struct Memory {
  int students = 0;
  double mebibytes = 0;
};

/// Prints the page's tables, as Markdown, on standard output. False when a figure is over its
/// limit; the table says which.
bool Report(const std::vector<Row>& rows, const StatementCost& cost,
            const std::vector<Memory>& memory);

}  // namespace quorvane::bench
