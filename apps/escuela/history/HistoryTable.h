#pragma once

#include <string>
#include <vector>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// The columns that a school's table of the history lacks; empty where there is no such table, too.
/// It asks the catalogue, so that no right to the table is needed. `school` is open.
std::vector<std::string> MissingHistoryColumns(Connection& school, sqltext::Engine engine);

/// The statements that give the table those columns, with what it holds kept. Error 0x80004005 in
/// Spanish for want of its key, which no table can be given.
std::vector<std::string> AddHistoryColumnsSql(const std::vector<std::string>& missing,
                                              sqltext::Engine engine, const std::string& schema);

}  // namespace quorvane
