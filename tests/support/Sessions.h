#pragma once

#include "tests/support/ScriptRun.h"

namespace quorvane::test {

// Who plays a script on a small school: one of profile 0; the tutor of section 321; the teacher
// whose person is 2; a user who is no member of staff.
ScriptOptions Unrestricted();
ScriptOptions Tutor();
ScriptOptions Teacher();
ScriptOptions NoStaff();

}  // namespace quorvane::test
