#pragma once

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

/// An address with the password that its server wants and that nothing gives: neither the string,
/// nor its data source, nor the place where the server's own client looks for one. It is asked for
/// at the program's terminal, where nobody sees it typed; without a terminal the address comes back
/// as it is. So no password need stand on a command line, where every user of the machine can read
/// it.
SchoolAddress WithPassword(const SchoolAddress& address);

}  // namespace quorvane
