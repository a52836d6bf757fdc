#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// Which of a school's tables, and of those that the programs keep beside them, are views in an
/// open database, or anything else that isn't a table, a finding each, in Spanish: nothing can be
/// written there, and one without an end keeps whoever reads it for ever. Reads what the engine
/// knows of the tables, and none of them.
std::vector<std::string> ViewsAmongTables(Connection& database);

/// Which columns that the module, or a program in a table of its own, writes are generated ones,
/// which refuse it. SQL Server isn't asked: there such a column tells of itself when it is written.
std::vector<std::string> GeneratedColumns(Connection& database);

}  // namespace quorvane
