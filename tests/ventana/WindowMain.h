#pragma once

#include "tests/walk/WalkMain.h"

namespace quorvane::test {

/// `WalkMain` with the toolkit up, without a display but for a developer who wants to watch, and
/// with nothing in it that hangs on the clock: the same seed is to give the same walk.
int WindowMain(const WalkProgram& program, int argc, char** argv);

}  // namespace quorvane::test
