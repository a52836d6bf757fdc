#pragma once

#include <array>
#include <string_view>

namespace quorvane {

/// What an engine's SQL for a description has of its own. A new engine is one more of these.
struct SchemaEngine {
  std::string_view name;
  std::string_view note;  ///< a comment for who reads the SQL: how flags and dates are kept
  std::array<std::string_view, 7> types;  ///< and what a column starts at, by SchemaKind
  std::string_view quote;                 ///< round each name, where bare ones don't do
  bool namedKey = false;                  ///< a primary key is a constraint with a name of its own
};

inline constexpr SchemaEngine kSqliteEngine = {
    .name = "SQLite",
    .note = "-- A flag is 0 or -1; a date is a text.",
    .types = {"INTEGER PRIMARY KEY", "INTEGER DEFAULT 0", "INTEGER DEFAULT 0", "INTEGER DEFAULT 0",
              "INTEGER DEFAULT 0", "TEXT", "TEXT"},
    .quote = "",
    .namedKey = false,
};

inline constexpr SchemaEngine kSqlServerEngine = {
    .name = "SQL Server",
    .note = "-- A flag is a bit, which takes the -1 that the module writes as 1; a date is a text.",
    .types = {"int NOT NULL", "int DEFAULT 0", "smallint DEFAULT 0", "tinyint DEFAULT 0",
              "bit DEFAULT 0", "nvarchar(255)", "varchar(10)"},
    .quote = "",
    .namedKey = true,
};

inline constexpr SchemaEngine kPostgreSqlEngine = {
    .name = "PostgreSQL",
    .note =
        "-- A flag is 0 or -1; a date is a text. Names stand without quotes: their case is free.",
    .types = {"integer NOT NULL", "integer DEFAULT 0", "smallint DEFAULT 0", "smallint DEFAULT 0",
              "smallint DEFAULT 0", "text", "varchar(10)"},
    .quote = "",
    .namedKey = true,
};

}  // namespace quorvane
