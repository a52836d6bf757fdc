#include "apps/escuela/TableNames.h"

#include <algorithm>

#include "apps/escuela/SchoolAddress.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

std::string NamesQuery(Engine engine) {
  switch (engine) {
    case Engine::PostgreSql:
      return "SELECT CAST(tablename AS text) FROM pg_tables WHERE schemaname=ANY(current_schemas("
             "false)) ORDER BY 1";
    case Engine::SqlServer:
      return "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE='BASE TABLE' AND "
             "TABLE_SCHEMA IN (SCHEMA_NAME(),'dbo') ORDER BY TABLE_NAME";
    default:
      return "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite?_%' "
             "ESCAPE '?' ORDER BY name";
  }
}

}  // namespace

std::vector<std::string> TableNames(Connection& database) {
  std::vector<std::string> names;
  for (auto rows = database.Execute(NamesQuery(EngineReached(database))); !rows.Eof();
       rows.MoveNext())
    names.push_back(rows.Fields(0).Text());
  return names;
}

std::vector<std::string> MisspeltTables(Connection& database) {
  if (EngineReached(database) != Engine::PostgreSql) return {};
  auto names = TableNames(database);
  std::erase_if(names, [](const std::string& name) {
    const auto& tables = SchoolTables();
    return name == AsciiLower(name) ||
           std::none_of(tables.begin(), tables.end(), [&name](const SchemaTable& table) {
             return EqualNoCase(table.name, name);
           });
  });
  return names;
}

}  // namespace quorvane
