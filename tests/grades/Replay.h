#pragma once

#include "tests/grades/Statements.h"
#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// Executes on another school what a session wrote, as its lines tell.
void Replay(const TestSchool& school, const Lines& traffic);

}  // namespace quorvane::test
