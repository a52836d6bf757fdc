#pragma once

#include <string>
#include <vector>

#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// Executes on another school what a session wrote to its own, as the lines of its script tell
/// ("sql centro INSERT ..."); queries and lines of other things are passed over.
void Replay(const TestSchool& school, const std::vector<std::string>& lines);

}  // namespace quorvane::test
