#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// The names of all tables that a statement without a schema's name reaches on an open connection,
/// as the engine spells them, in their order. The engine's error when it can't be asked.
std::vector<std::string> TableNames(Connection& database);

/// The school's tables that stand there under a name of other letters, capital or small, than the
/// engine looks for: on PostgreSQL those that were made with their names in quotes.
std::vector<std::string> MisspeltTables(Connection& database);

}  // namespace quorvane
