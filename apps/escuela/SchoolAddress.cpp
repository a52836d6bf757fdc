#include "apps/escuela/SchoolAddress.h"

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"

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

bool ReachesSqlServer(const Connection& connection) {
  const auto* const odbc = dynamic_cast<const odbc::OdbcConnection*>(&connection);
  return odbc != nullptr && odbc->EngineIsSqlServer();
}

// SQLite's driver has no state of its own for it.
bool IsMissingTable(const std::string& description) {
  return description.find("[42S02]") != std::string::npos ||
         description.find("no such table") != std::string::npos;
}

}  // namespace quorvane
