#include "apps/escuela/NewSchool.h"

#include <string>
#include <string_view>

#include "adapters/odbc/OdbcConnection.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/SchoolWriting.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

[[noreturn]] void Refuse(const std::string& place, const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "No se puede crear la escuela en " + place + ": " + reason);
}

std::string_view SchemaFor(const odbc::OdbcConnection& database, const std::string& place) {
  switch (database.ReachedEngine()) {
    case sqltext::Engine::SqlServer:
      return SqlServerSchema();
    case sqltext::Engine::PostgreSql:
      return PostgreSqlSchema();
    case sqltext::Engine::Sqlite:
      return SqliteSchema();
    case sqltext::Engine::Unknown:
      break;
  }
  Refuse(place, "solo se sabe hacer en PostgreSQL, en SQL Server y en SQLite");
}

void RequireEmpty(Connection& database, const std::string& place) {
  for (const auto& table : SchoolTables())
    if (HasTable(database, table.name)) Refuse(place, "ya tiene la tabla " + table.name);
}

/// Undoes what was written unless it is kept. A lost connection is undone by the server.
class Transaction {
 public:
  explicit Transaction(Connection& database) : database_(database) {
    database_.Execute("BEGIN TRANSACTION");
  }
  ~Transaction() {
    try {
      if (!kept_ && database_.IsOpen()) database_.Execute("ROLLBACK TRANSACTION");
    } catch (const RuntimeError&) {
      // The connection ends with its transaction, whose failure has been told.
      database_.Close();
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  Transaction(Transaction&&) = delete;
  Transaction& operator=(Transaction&&) = delete;

  void Keep() {
    database_.Execute("COMMIT TRANSACTION");
    kept_ = true;
  }

 private:
  Connection& database_;
  bool kept_ = false;
};

}  // namespace

void MakeSchool(const SchoolAddress& address, const std::function<void(Connection& school)>& fill) {
  if (!address.IsOdbc()) return MakeSchoolFile(address.Text(), fill);
  odbc::OdbcConnection database(address.Text(), "");
  database.Open();
  const auto place = address.Shown();
  const auto schema = SchemaFor(database, place);
  RequireEmpty(database, place);
  try {
    Transaction transaction(database);
    WriteSchool(database, schema, fill);
    transaction.Keep();
  } catch (const RuntimeError& error) {
    Refuse(place, error.Description() + ". No ha quedado nada escrito");
  }
}

}  // namespace quorvane
