#include "tests/support/TestConnection.h"

#include <cstdlib>
#include <string_view>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "tests/support/ServerSchools.h"

namespace quorvane::test {

bool ThroughOdbc() {
  const auto* const variable = std::getenv("QUORVANE_PRUEBAS_ODBC");
  return OnServer() || (variable != nullptr && std::string_view(variable) == "1");
}

std::size_t FailureStride(std::size_t step) { return ThroughOdbc() ? 7 * step : step; }

std::string OdbcString(const std::string& path) {
  if (OnServer()) return ServerString(path);
  return "Driver=SQLite3;SyncPragma=OFF;Database=" + path;
}

void PlayOn(guion::PlayOptions& options, const std::string& path, const std::string& entrada) {
  if (!ThroughOdbc()) {
    options.bd = path;
    options.entrada = entrada;
    return;
  }
  options.odbc = OdbcString(path);
  if (!entrada.empty()) options.entrada = OdbcString(entrada);
}

std::string EngineText(const std::string& text) {
  if (OnServer()) return "[42P01] ERROR: relation ";
  return ThroughOdbc() ? "[HY000] " + text : text;
}

TestConnection::TestConnection(const std::string& path, const std::string& name)
    : Connection(name) {
  if (ThroughOdbc())
    inner_ = std::make_unique<odbc::OdbcConnection>(OdbcString(path), "");
  else
    inner_ = std::make_unique<sqlite::SqliteConnection>(path, "");
}

}  // namespace quorvane::test
