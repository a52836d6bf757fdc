#include "apps/escuela/NewSchool.h"

#include <string>
#include <string_view>

#include "adapters/odbc/OdbcConnection.h"
#include "apps/escuela/OutcomeUnknown.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/TableNames.h"
#include "apps/escuela/Transaction.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

[[noreturn]] void RefuseSchool(const std::string& place, const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "No se puede crear la escuela en " + place + ": " + reason);
}

std::string_view SchemaFor(const odbc::OdbcConnection& database) {
  switch (database.ReachedEngine()) {
    case sqltext::Engine::SqlServer:
      return SqlServerSchema();
    case sqltext::Engine::PostgreSql:
      return PostgreSqlSchema();
    default:
      return SqliteSchema();
  }
}

void RequireEmpty(Connection& database, const std::string& place) {
  for (const auto& table : SchoolTables())
    if (HasTable(database, table.name)) RefuseSchool(place, "ya tiene la tabla " + table.name);
  for (const auto& name : MisspeltTables(database))
    RefuseSchool(place, "ya tiene la tabla «" + name + "», hecha con su nombre entre comillas");
}

}  // namespace

void MakeSchool(const SchoolAddress& address, const std::function<void(Connection& school)>& fill,
                const std::function<void()>& goOn) {
  address.RequireInPlace();
  if (!address.IsOdbc()) return MakeSchoolFile(address.Text(), fill, goOn);
  odbc::OdbcConnection database(address.Text(), "");
  database.Open();
  const auto place = address.Shown();
  RequireEmpty(database, place);
  try {
    Transaction transaction(database);
    WriteSchool(database, SchemaFor(database), fill, goOn);
    transaction.KeepOrTell(
        "No se sabe si se ha creado la escuela en " + place +
        ", porque la conexión se perdió cuando el servidor la daba por escrita: está entera o no "
        "está. Mírelo con «quorvane-escuela comprobar». ");
  } catch (const OutcomeUnknown&) {
    throw;
  } catch (const RuntimeError& error) {
    RefuseSchool(place, error.Description() + ". No ha quedado nada escrito");
  }
}

}  // namespace quorvane
