#include "tests/support/Sessions.h"

namespace quorvane::test {
namespace {

ScriptOptions Session(int user, int profile) {
  ScriptOptions options;
  options.usuario = user;
  options.perfil = profile;
  return options;
}

}  // namespace

ScriptOptions Unrestricted() { return Session(1, 0); }
ScriptOptions Tutor() { return Session(2, 3); }
ScriptOptions Teacher() { return Session(3, 3); }
ScriptOptions NoStaff() { return Session(4, 3); }

}  // namespace quorvane::test
