#pragma once

#include "adapters/odbc/DriverConnection.h"
#include "adapters/sqltext/Dialect.h"

namespace quorvane::odbc {

/// Error 0x80004005, whose text tells what is supported, where the module can't work on what an
/// open connection reaches: an engine of another kind, a PostgreSQL before version 12, a database
/// there that doesn't keep its texts in UTF-8. DriverFailure when the server can't be asked.
void RequireSupported(const DriverConnection& connection, sqltext::Engine engine);

}  // namespace quorvane::odbc
