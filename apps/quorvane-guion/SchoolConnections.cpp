#include "apps/quorvane-guion/SchoolConnections.h"

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/TableKinds.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"

namespace quorvane::guion {
namespace {

SchoolAddress CentroOf(const PlayOptions& options) {
  return options.odbc.empty() ? SchoolAddress::File(options.bd) : SchoolAddress::Odbc(options.odbc);
}

SchoolAddress EntradaOf(const PlayOptions& options) {
  if (options.entrada.empty()) return CentroOf(options);
  const auto isString = !options.odbc.empty() && odbc::ConnectionString::Looks(options.entrada);
  return isString ? SchoolAddress::Odbc(options.entrada) : SchoolAddress::File(options.entrada);
}

/// A school that lacks a table is still one, and fails where the table is asked for.
void RequireSchool(const SchoolAddress& address) {
  const auto connection = address.Open("");
  // A server's own tables are its keeper's affair; a file may come from anywhere, and a driver may
  // open one, too.
  const auto isFile = EngineReached(*connection) == sqltext::Engine::Sqlite;
  const auto strange = isFile ? ViewsAmongTables(*connection) : std::vector<std::string>();
  if (!strange.empty())
    throw RuntimeError(
        ErrorNumber::StatementFailed,
        "La base de datos " + address.Shown() + " no es de ningún centro: " + strange.front());
  const auto& tables = SchoolTables();
  const auto any = std::any_of(tables.begin(), tables.end(), [&](const SchemaTable& table) {
    return HasTable(*connection, table.name);
  });
  if (!any)
    throw RuntimeError(
        ErrorNumber::StatementFailed,
        "La base de datos " + address.Shown() + " no es de ningún centro: no tiene sus tablas");
}

}  // namespace

SchoolConnections::SchoolConnections(const PlayOptions& options) {
  const auto centro = CentroOf(options);
  const auto entrada = EntradaOf(options);
  RequireSchool(centro);
  if (!options.entrada.empty()) RequireSchool(entrada);
  centro_ = centro.Open("centro");
  borrado_ = centro.StandBy("borrado");
  entrada_ = entrada.Open("entrada");
  otra_ = centro.StandBy("");
  sqlServer_ = ReachesSqlServer(*centro_);
  place_ = centro.Shown();
}

}  // namespace quorvane::guion
