#pragma once

#include <ostream>

#include "tests/walk/History.h"
#include "tests/walk/WalkOptions.h"

namespace quorvane::test {

/// The same walk twice: on schools in memory, by a process of its own, and then on a server. What
/// is shown, asked and answered has to be the same line by line: each gesture and message, each
/// statement and the numbers of the errors. `Violation` at the first that differs.
void WalkOnServer(const WalkOptions& options, History& history, std::ostream& out);

}  // namespace quorvane::test
