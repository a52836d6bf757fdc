#include "apps/escuela/SchoolAddress.h"

#include <filesystem>
#include <system_error>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/Secrets.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/StandbyConnection.h"
#include "platform/RuntimeError.h"

namespace quorvane {

std::string SchoolAddress::Shown() const {
  return odbc_ ? odbc::ConnectionString(text_).TextWithoutPassword() : odbc::WithoutSecrets(text_);
}

bool SchoolAddress::IsMisplaced() const {
  std::error_code ignored;
  return !odbc_ && odbc::ConnectionString::Reads(text_) && !std::filesystem::exists(text_, ignored);
}

void SchoolAddress::RequireInPlace() const {
  if (IsMisplaced()) throw RuntimeError(ErrorNumber::StatementFailed, kMisplaced);
}

bool SchoolAddress::EverybodyReads() const {
  std::error_code ignored;
  const auto rights = std::filesystem::status(text_, ignored).permissions();
  return !odbc_ && !ignored &&
         (rights & std::filesystem::perms::others_read) != std::filesystem::perms::none;
}

std::unique_ptr<Connection> SchoolAddress::Connect(const std::string& name, Access access) const {
  if (odbc_) return std::make_unique<odbc::OdbcConnection>(text_, name);
  RequireInPlace();
  return std::make_unique<sqlite::SqliteConnection>(
      text_, name,
      access == Access::ReadOnly ? sqlite::OpenMode::ReadOnly : sqlite::OpenMode::ReadWrite);
}

std::unique_ptr<Connection> SchoolAddress::Open(const std::string& name, Access access) const {
  auto connection = Connect(name, access);
  connection->Open();
  return connection;
}

std::unique_ptr<Connection> SchoolAddress::StandBy(const std::string& name) const {
  if (odbc_) return std::make_unique<StandbyConnection>(Connect(""), name);
  return Open(name);
}

namespace {

/// What a connection does its work through, open; null for one to a file.
odbc::OdbcConnection* Behind(Connection& connection) {
  auto* const standby = dynamic_cast<StandbyConnection*>(&connection);
  if (standby == nullptr) return dynamic_cast<odbc::OdbcConnection*>(&connection);
  // It knows its engine no sooner.
  standby->Actual().Open();
  return dynamic_cast<odbc::OdbcConnection*>(&standby->Actual());
}

}  // namespace

sqltext::Engine EngineReached(Connection& connection) {
  const auto* const odbc = Behind(connection);
  return odbc == nullptr ? sqltext::Engine::Sqlite : odbc->ReachedEngine();
}

bool ReachesSqlServer(Connection& connection) {
  return EngineReached(connection) == sqltext::Engine::SqlServer;
}

std::string ServerDate(Connection& connection) {
  auto* const odbc = Behind(connection);
  return odbc == nullptr ? std::string() : odbc->ServerDate();
}

std::optional<FieldNames> ColumnsOf(Connection& connection, const std::string& table) {
  try {
    return connection.Execute("SELECT * FROM [" + table + "] WHERE 1=0").Names();
  } catch (const RuntimeError& error) {
    // SQLite has no state of its own for it, and PostgreSQL another one.
    const auto tells = [text = error.Description()](const char* part) {
      return text.find(part) != std::string::npos;
    };
    if (!tells("[42S02]") && !tells("[42P01]") && !tells("no such table")) throw;
    return std::nullopt;
  }
}

bool HasTable(Connection& connection, const std::string& table) {
  return ColumnsOf(connection, table).has_value();
}

}  // namespace quorvane
