#pragma once

#include <string>
#include <vector>

namespace quorvane::test {

/// The values of a row that is written with | between.
std::vector<std::string> SplitRow(const std::string& row);

/// What grade entry gives in a row of one of the two tables of grades: all but the row's own
/// number, its subject and evaluation and, at its end, the mark of the last evaluation.
std::string GradesOf(const std::string& row);

}  // namespace quorvane::test
