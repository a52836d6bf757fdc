#pragma once

#include <string>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

/// The orders about who signs in to a school in a file, and with what; as `Commands.h` has them. A
/// user is told by number or by name. The password is asked for, and is no argument: those are seen
/// by everybody who lists the computer's processes.

int ShowUsers(const SchoolAddress& address);
int SetPassword(const SchoolAddress& address, const std::string& user);
int RemovePassword(const SchoolAddress& address, const std::string& user);

/// One line of `comprobar` about them; empty for a school on a server, and for one that no desktop
/// could sign anybody in to.
std::string PasswordsFinding(Connection& school);

}  // namespace quorvane
