#include "apps/escuela/SchoolAddress.h"

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/StandbyConnection.h"
#include "platform/RuntimeError.h"

namespace quorvane {

std::string SchoolAddress::Shown() const {
  return odbc_ ? odbc::ConnectionString(text_).TextWithoutPassword() : text_;
}

std::unique_ptr<Connection> SchoolAddress::Connect(const std::string& name, Access access) const {
  if (odbc_) return std::make_unique<odbc::OdbcConnection>(text_, name);
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

sqltext::Engine EngineReached(const Connection& connection) {
  const auto* const odbc = dynamic_cast<const odbc::OdbcConnection*>(&connection);
  return odbc == nullptr ? sqltext::Engine::Sqlite : odbc->ReachedEngine();
}

bool ReachesSqlServer(const Connection& connection) {
  return EngineReached(connection) == sqltext::Engine::SqlServer;
}

std::string ServerDate(Connection& connection) {
  auto* const odbc = dynamic_cast<odbc::OdbcConnection*>(&connection);
  return odbc == nullptr ? std::string() : odbc->ServerDate();
}

bool HasTable(Connection& connection, const std::string& table) {
  try {
    connection.Execute("SELECT * FROM [" + table + "] WHERE 1=0");
    return true;
  } catch (const RuntimeError& error) {
    // SQLite has no state of its own for it, and PostgreSQL another one.
    const auto tells = [text = error.Description()](const char* part) {
      return text.find(part) != std::string::npos;
    };
    if (!tells("[42S02]") && !tells("[42P01]") && !tells("no such table")) throw;
    return false;
  }
}

}  // namespace quorvane
