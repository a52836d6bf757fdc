#pragma once

#include "tests/support/Sessions.h"

namespace quorvane::test {

/// Who opens the form, and what of it shows in the statements.
struct Role {
  int user = 1;
  int person = 0;       ///< of the user
  int gIDPersonal = 0;  ///< as step one has it: 0 for profile 0
  bool unrestricted = true;
  bool section = true;  ///< sees the whole section
  bool sqlServer = false;

  [[nodiscard]] long True() const { return sqlServer ? 1 : -1; }
};

inline constexpr Role kUnrestricted{.user = 1};
inline constexpr Role kTutor{.user = 2, .person = 1, .gIDPersonal = 1, .unrestricted = false};
inline constexpr Role kTeacher{
    .user = 3, .person = 2, .gIDPersonal = 2, .unrestricted = false, .section = false};
inline constexpr Role kNoStaff{.user = 4, .unrestricted = false, .section = false};

/// The role on the file database, or on the engine whose True is 1.
constexpr Role OnEngine(Role role, bool sqlServer) {
  role.sqlServer = sqlServer;
  return role;
}

/// The session in which a script plays that role.
inline ScriptOptions SessionOf(const Role& role) {
  ScriptOptions options;
  options.usuario = role.user;
  options.perfil = role.unrestricted ? 0 : 1;
  options.sqlServer = role.sqlServer;
  return options;
}

}  // namespace quorvane::test
