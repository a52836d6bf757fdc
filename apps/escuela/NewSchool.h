#pragma once

#include <functional>

#include "apps/escuela/SchoolAddress.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Makes a school where the address says: its tables, and the rows that `fill` writes. A file must
/// not be there yet, see `MakeSchoolFile`. A database behind ODBC must be there, of an engine that
/// the driver names PostgreSQL, SQL Server or SQLite, and hold none of a school's tables: that and
/// any failure is error 0x80004005 with a text in Spanish. All is written in one transaction, so
/// after a failure nothing is left.
void MakeSchool(const SchoolAddress& address, const std::function<void(Connection& school)>& fill);

}  // namespace quorvane
