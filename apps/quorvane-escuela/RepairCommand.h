#pragma once

#include "apps/escuela/repair/SchoolRepair.h"

namespace quorvane {

/// Mends a school and prints what it did as statements that undo it. 0; errors as of
/// `RepairSchool`.
int Repair(const SchoolAddress& address, const RepairOptions& options);

}  // namespace quorvane
