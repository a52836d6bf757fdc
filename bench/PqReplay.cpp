#include "bench/PqReplay.h"

#include <array>
#include <cstddef>
#include <libpq-fe.h>
#include <memory>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/sqltext/Dialect.h"
#include "bench/Replay.h"

namespace quorvane::bench {
namespace {

constexpr const char* kName = "PQexec";

using Server = std::unique_ptr<PGconn, decltype(&PQfinish)>;
using Rows = std::unique_ptr<PGresult, decltype(&PQclear)>;

Server Connect(const std::string& connectionString) {
  const odbc::ConnectionString given(connectionString);
  constexpr std::array<const char*, 6> kNames = {"host", "port",     "dbname",
                                                 "user", "password", nullptr};
  const std::array<std::string, 5> values = {given.Value("Server"), given.Value("Port"),
                                             given.Value("Database"), given.Value("UID"),
                                             given.Value("PWD")};
  std::array<const char*, 6> texts{};
  for (std::size_t i = 0; i < values.size(); ++i) texts[i] = values[i].c_str();
  Server server(PQconnectdbParams(kNames.data(), texts.data(), 0), PQfinish);
  if (PQstatus(server.get()) != CONNECTION_OK)
    ReplayFailed(kName, PQerrorMessage(server.get()), "connecting");
  return server;
}

}  // namespace

Time ReplayWithPq(const std::string& connectionString,
                  const std::vector<RecordedStatement>& statements) {
  std::vector<std::string> texts;
  texts.reserve(statements.size());
  for (const auto& statement : statements)
    texts.push_back(sqltext::Put(statement.text, sqltext::Engine::PostgreSql));
  const auto server = Connect(connectionString);
  const Watch watch;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const Rows rows(PQexec(server.get(), texts[i].c_str()), PQclear);
    const auto status = PQresultStatus(rows.get());
    if (status != PGRES_TUPLES_OK && status != PGRES_COMMAND_OK)
      ReplayFailed(kName, PQerrorMessage(server.get()), texts[i]);
    RequireRows(kName, statements[i], static_cast<std::size_t>(PQntuples(rows.get())));
  }
  return watch.Passed();
}

}  // namespace quorvane::bench
