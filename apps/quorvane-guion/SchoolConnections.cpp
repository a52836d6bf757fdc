#include "apps/quorvane-guion/SchoolConnections.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/AsciiCase.h"
#include "platform/RuntimeError.h"

namespace quorvane::guion {
namespace {

std::unique_ptr<Connection> OpenFile(const std::string& path, const char* name) {
  auto connection = std::make_unique<sqlite::SqliteConnection>(path, name);
  connection->Open();
  return connection;
}

bool IsSchoolTable(std::string_view name) {
  const auto& tables = SchoolTables();
  return std::any_of(tables.begin(), tables.end(),
                     [name](const SchemaTable& table) { return EqualNoCase(table.name, name); });
}

/// A school that lacks a table is still one, and fails where the table is asked for.
void RequireSchool(const std::string& path) {
  auto connection = OpenFile(path, "");
  auto tables = connection->Execute("SELECT name FROM sqlite_master WHERE type='table'");
  for (; !tables.Eof(); tables.MoveNext())
    if (IsSchoolTable(tables.Fields(0).Text())) return;
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "La base de datos " + path + " no es de ningún centro: no tiene sus tablas");
}

}  // namespace

SchoolConnections::SchoolConnections(const PlayOptions& options) {
  if (!options.odbc.empty())
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "Este programa se ha construido sin ODBC: abra el centro con --bd");
  const auto& entrada = options.entrada.empty() ? options.bd : options.entrada;
  RequireSchool(options.bd);
  RequireSchool(entrada);
  centro_ = OpenFile(options.bd, "centro");
  borrado_ = OpenFile(options.bd, "borrado");
  entrada_ = OpenFile(entrada, "entrada");
  otra_ = OpenFile(options.bd, "");
}

}  // namespace quorvane::guion
