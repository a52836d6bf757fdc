#pragma once

#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// What recorded statements take on a PostgreSQL server without this module and without ODBC: each
/// handed to libpq's `PQexec` as the adapter puts it for that engine. `connectionString` is as for
/// ODBC; connecting isn't measured. Ends the program when one fails or gives another number of
/// rows.
Time ReplayWithPq(const std::string& connectionString,
                  const std::vector<RecordedStatement>& statements);

}  // namespace quorvane::bench
