#pragma once

#include <cstddef>
#include <string>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/sqltext/Dialect.h"

namespace quorvane::odbc {

/// The engine that a connection string itself tells of, by its driver or by that of the data source
/// that it names; unknown where neither does.
sqltext::Engine NamedEngine(const std::string& connectionString);

/// Whether it names, likewise, a driver, and that is known for none of the engines that are
/// supported.
bool NamesOtherDriver(const std::string& connectionString);

/// What the connection string says of a keyword, or else the data source that it names; empty where
/// neither does.
std::string GivenSetting(const ConnectionString& string, const char* keyword);

/// How many servers it names, which the driver tries one after the other: PostgreSQL's alone does,
/// the others know the comma for other things.
std::size_t NamedServers(const std::string& connectionString);

/// The completed string of a PostgreSQL for that address in figures alone, whichever of its servers
/// that is, and whether that may be written to or not. Any other string stays as it is.
std::string OnlyAt(const std::string& completed, const std::string& address, int port);

/// The connection string with the settings that its engine's driver needs and that neither it nor
/// its data source has. What either has counts.
std::string Completed(const std::string& connectionString, sqltext::Engine engine);

}  // namespace quorvane::odbc
