#include "adapters/odbc/SupportedServer.h"

#include <cstdlib>
#include <sql.h>
#include <string>

#include "platform/RuntimeError.h"

namespace quorvane::odbc {
namespace {

using sqltext::Engine;

constexpr long kOldestPostgreSql = 12;

[[noreturn]] void Refuse(const std::string& why) {
  throw RuntimeError(ErrorNumber::StatementFailed, "No se puede usar esta base de datos: " + why);
}

void RequireVersion(const std::string& version) {
  // "15.0.8"; a server that doesn't tell is let be.
  const auto number = std::strtol(version.c_str(), nullptr, 10);
  if (number > 0 && number < kOldestPostgreSql)
    Refuse("su servidor es PostgreSQL " + version + ", y hace falta la versión " +
           std::to_string(kOldestPostgreSql) + " o una posterior");
}

void RequireEncoding(const DriverConnection& connection) {
  const auto encoding = connection.Execute("SHOW server_encoding", false).Fields(0).Text();
  if (encoding != "UTF8")
    Refuse("guarda los textos en " + encoding +
           ", y ha de guardarlos en UTF8. Haga otra con «CREATE DATABASE … ENCODING 'UTF8' "
           "TEMPLATE template0»");
}

}  // namespace

void RequireSupported(const DriverConnection& connection, Engine engine) {
  if (engine == Engine::Unknown) {
    const auto name = connection.Info(SQL_DBMS_NAME);
    Refuse("es de " + (name.empty() ? "un motor desconocido" : "«" + name + "»") +
           ", y solo se admiten PostgreSQL, desde la versión " + std::to_string(kOldestPostgreSql) +
           ", SQL Server y SQLite");
  }
  if (engine != Engine::PostgreSql) return;
  RequireVersion(connection.Info(SQL_DBMS_VER));
  RequireEncoding(connection);
}

}  // namespace quorvane::odbc
