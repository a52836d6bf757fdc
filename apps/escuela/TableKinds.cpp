#include "apps/escuela/TableKinds.h"

#include <algorithm>
#include <optional>

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

/// Gives the names of what isn't a table.
std::string ViewsQuery(Engine engine) {
  switch (engine) {
    case Engine::PostgreSql:
      return "SELECT CAST(relname AS text) FROM pg_class WHERE relkind IN ('v','m') AND "
             "pg_table_is_visible(oid)";
    case Engine::SqlServer:
      return "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE='VIEW' AND "
             "TABLE_SCHEMA IN (SCHEMA_NAME(),'dbo') ORDER BY TABLE_NAME";
    default:
      return "SELECT name FROM pragma_table_list WHERE schema='main' AND type<>'table'";
  }
}

/// Gives the names of tables with those of their generated columns; empty where none is asked for.
std::string GeneratedQuery(Engine engine) {
  switch (engine) {
    case Engine::PostgreSql:
      return "SELECT CAST(relname AS text), CAST(attname AS text) FROM pg_attribute INNER JOIN "
             "pg_class ON pg_class.oid=attrelid WHERE attgenerated<>'' AND "
             "pg_table_is_visible(attrelid)";
    case Engine::SqlServer:
      // Who may not look into its catalogue is told of none: such a column shows when it is
      // written.
      return {};
    default:
      return "SELECT t.name, c.name FROM pragma_table_list t INNER JOIN pragma_table_xinfo(t.name) "
             "c WHERE t.schema='main' AND t.type='table' AND c.hidden IN (2,3)";
  }
}

/// Gives the names of triggers with those of their tables and, in a file, the text of each; empty
/// where none is asked for.
std::string TriggersQuery(Engine engine) {
  switch (engine) {
    case Engine::PostgreSql:
      return "SELECT CAST(tgname AS text), CAST(relname AS text) FROM pg_trigger INNER JOIN "
             "pg_class ON pg_class.oid=tgrelid WHERE NOT tgisinternal AND "
             "pg_table_is_visible(pg_class.oid) ORDER BY 2, 1";
    case Engine::SqlServer:
      return {};
    default:
      return "SELECT name, tbl_name, sql FROM sqlite_master WHERE type='trigger' ORDER BY 2, 1";
  }
}

/// A table that is read, and whether what is written to it takes every column.
struct ReadTable {
  std::string name;
  bool written = true;
};

/// One that a school must have, or one of the host's own, which it may have.
std::optional<ReadTable> TableNamed(const std::string& name) {
  if (const auto* const table = FindSchoolTable(name))
    return ReadTable{table->name, table->byPosition};
  for (const auto& own : {std::string(kHistoryTable), std::string(UserPasswords::kTable)})
    if (EqualNoCase(own, name)) return ReadTable{own};
  return std::nullopt;
}

}  // namespace

std::vector<std::string> ViewsAmongTables(Connection& database) {
  std::vector<std::string> findings;
  for (auto rows = database.Execute(ViewsQuery(EngineReached(database))); !rows.Eof();
       rows.MoveNext())
    if (const auto table = TableNamed(rows.Fields(0).Text()))
      findings.push_back("La tabla " + table->name + " no es una tabla, sino una vista");
  return findings;
}

std::vector<std::string> GeneratedColumns(Connection& database) {
  std::vector<std::string> findings;
  const auto generated = GeneratedQuery(EngineReached(database));
  if (generated.empty()) return findings;
  for (auto rows = database.Execute(generated); !rows.Eof(); rows.MoveNext()) {
    const auto table = TableNamed(rows.Fields(0).Text());
    // What is inserted by position takes every column.
    if (table && table->written)
      findings.push_back("La columna " + rows.Fields(1).Text() + " de la tabla " + table->name +
                         " es calculada, y no se puede escribir en ella");
  }
  return findings;
}

std::vector<std::string> StrangeTriggers(Connection& database) {
  std::vector<std::string> findings;
  const auto engine = EngineReached(database);
  const auto triggers = TriggersQuery(engine);
  if (triggers.empty()) return findings;
  const auto file = engine == Engine::Sqlite;
  // Who makes a file to harm its reader may give his own the names of ours.
  const auto ours = file ? GradeHistory(database).TriggersSql() : std::vector<std::string>();
  for (auto rows = database.Execute(triggers); !rows.Eof(); rows.MoveNext()) {
    const auto name = rows.Fields(0).Text();
    const auto table = TableNamed(rows.Fields(1).Text());
    if (!table) continue;
    if (IsHistoryTrigger(name, table->name) &&
        (!file || std::find(ours.begin(), ours.end(), rows.Fields(2).Text()) != ours.end()))
      continue;
    findings.push_back("La tabla " + table->name + " tiene el disparador «" + name +
                       "», que no es de estos programas y puede impedir que se escriba en ella");
  }
  return findings;
}

}  // namespace quorvane
