#pragma once

#include "tests/support/ScriptRun.h"

namespace quorvane::test {

// Who plays a script on a small school: one of profile 0; the tutor of section 321; the teacher
// whose person is 2; a user who is no member of staff.
inline ScriptOptions Unrestricted() { return {.usuario = 1, .perfil = 0}; }
inline ScriptOptions Tutor() { return {.usuario = 2, .perfil = 3}; }
inline ScriptOptions Teacher() { return {.usuario = 3, .perfil = 3}; }
inline ScriptOptions NoStaff() { return {.usuario = 4, .perfil = 3}; }

}  // namespace quorvane::test
