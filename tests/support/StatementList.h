#pragma once

#include <string>
#include <vector>

namespace quorvane::test {

/// The statements in a list of them: every one that the module can issue, with {n}, {b} and {l}
/// where its numbers stand.
std::vector<std::string> Catalogue(const std::string& file);

/// One of them with its numbers filled in.
std::string FillIn(std::string line, int number);

bool IsSelect(const std::string& statement);

}  // namespace quorvane::test
