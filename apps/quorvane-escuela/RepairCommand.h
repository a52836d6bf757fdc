#pragma once

#include "apps/escuela/repair/SchoolRepair.h"

namespace quorvane {

/// Mends a school and prints what it did as statements that undo it, before it is done for good. 0;
/// 1 with what is left, told on the error output; errors as of `RepairSchool`, and 0x80004005 with
/// the school as it was when they can't be printed.
int Repair(const SchoolAddress& address, const RepairOptions& options);

}  // namespace quorvane
