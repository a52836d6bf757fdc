#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqltext/Dialect.h"

namespace quorvane {

/// The table in which the history of grades is kept: the host's own, no school need have it.
inline constexpr std::string_view kHistoryTable = "HistorialNotas";

/// The tables of grades, and the columns of each whose changes are kept.
struct WatchedTable {
  std::string_view name;
  std::vector<std::string_view> columns;
};
const std::vector<WatchedTable>& WatchedTables();

/// What stands in the column `Columna` for a row that comes and one that goes.
inline constexpr std::string_view kRowAdded = "alta";
inline constexpr std::string_view kRowRemoved = "baja";

/// A query for the schema of the tables of grades on PostgreSQL, as a statement takes it.
inline constexpr std::string_view kSchemaQuery =
    "SELECT CAST(quote_ident(nspname) AS text) FROM pg_namespace INNER JOIN pg_class ON "
    "pg_class.relnamespace=pg_namespace.oid WHERE relname='evaluacionpte' AND "
    "pg_table_is_visible(pg_class.oid)";

/// The statements that make the table of the history. `schema` is that of the tables of grades on
/// PostgreSQL, and empty elsewhere, here and below.
std::vector<std::string> HistoryTableSql(sqltext::Engine engine, const std::string& schema);

/// The statements that have an engine keep the history, in order. `userColumn` is what the school
/// calls the user in its locks. On PostgreSQL and SQL Server nothing that fails in them reaches
/// whoever saves; on SQLite a row that can't be kept is left out, whatever rules the table has been
/// given, but the table has to be there.
std::vector<std::string> HistoryTriggersSql(sqltext::Engine engine, const std::string& userColumn,
                                            const std::string& schema);
/// Those that have it stop.
std::vector<std::string> NoHistoryTriggersSql(sqltext::Engine engine);

/// Whether a trigger on a table is called as one of a history's, in whatever letters.
bool IsHistoryTrigger(std::string_view name, std::string_view table);
/// A query that gives a row for each of the triggers that stand: its name and, in a file, its text.
std::string HistoryTriggersQuery(sqltext::Engine engine);
/// One for each of those that stand as they were made: none that has been switched off, nor one
/// that runs with rights it doesn't guard.
std::string WorkingTriggersQuery(sqltext::Engine engine);
/// One that gives a row where the table of the history is there, and fails nowhere.
std::string HistoryTableQuery(sqltext::Engine engine);
/// How many triggers there are of a whole history.
std::size_t HistoryTriggersCount();

}  // namespace quorvane
