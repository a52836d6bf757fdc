#include "adapters/odbc/OdbcConnection.h"

#include <chrono>
#include <cstdlib>
#include <sqlext.h>
#include <string_view>
#include <thread>
#include <utility>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/DriverConnection.h"
#include "adapters/odbc/DriverFailure.h"
#include "adapters/sqltext/Concatenation.h"
#include "adapters/sqltext/NestedJoins.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::odbc {
namespace {

constexpr std::chrono::milliseconds kBusyWait = std::chrono::seconds(60);
constexpr std::chrono::milliseconds kBusyPause{5};
constexpr SQLINTEGER kSqliteBusy = 5;
constexpr SQLINTEGER kLoginFailed = 18456;

bool Names(std::string_view text, const char* product) {
  return AsciiLower(text).find(product) != std::string::npos;
}

bool NamesSqlite(const ConnectionString& given) { return Names(given.Value("Driver"), "sqlite"); }

/// What the file database's own adapter sees to: a file that isn't there stays so, one that
/// somebody else writes to is waited for, and what is written is durable.
std::string Completed(const std::string& text) {
  const ConnectionString given(text);
  if (!NamesSqlite(given)) return text;
  auto completed = text;
  if (!given.Has("Timeout")) completed += ";Timeout=" + std::to_string(kBusyWait.count());
  if (!given.Has("NoCreat")) completed += ";NoCreat=Yes";
  if (!given.Has("SyncPragma")) completed += ";SyncPragma=FULL";
  return completed;
}

/// What the user can do about a connection that doesn't come to be.
std::string Advice(const Diagnostics& diagnostics) {
  if (diagnostics.HasState("IM") || diagnostics.HasState("01000"))
    return ". Compruebe que la cadena nombra un controlador instalado, con «odbcinst -q -d», o un "
           "origen de datos, con «odbcinst -q -s»";
  if (diagnostics.HasState("28") || diagnostics.HasNative(kLoginFailed))
    return ". Compruebe el usuario y la contraseña (UID y PWD) y que ese usuario puede abrir la "
           "base de datos";
  return ". Compruebe en la cadena de conexión el servidor y la base de datos, y que este equipo "
         "llega hasta ellos";
}

std::chrono::milliseconds BusyWait(const ConnectionString& given) {
  if (!given.Has("Timeout")) return kBusyWait;
  return std::chrono::milliseconds(std::atol(given.Value("Timeout").c_str()));
}

std::string NamedSource(const std::string& text) {
  const ConnectionString given(text);
  for (const auto* const keyword : {"Server", "Servername", "Database", "DSN"})
    if (given.Has(keyword)) return given.Value(keyword);
  return {};
}

}  // namespace

OdbcConnection::OdbcConnection(std::string connectionString, std::string name)
    : Connection(std::move(name)),
      text_(std::move(connectionString)),
      dataSource_(NamedSource(text_)) {}

OdbcConnection::~OdbcConnection() = default;

void OdbcConnection::Open() {
  if (IsOpen()) return;
  // SQLite's driver loses the letters beyond the first plane in UTF-16, and takes UTF-8 as it is.
  const auto letters = NamesSqlite(ConnectionString(text_)) ? Letters::Utf8 : Letters::Wide;
  Connect(letters);
  if (EngineIsSqlite() && letters == Letters::Wide) Connect(Letters::Utf8);
  const auto source =
      connection_->Info(engine_ == Engine::Sqlite ? SQL_DATABASE_NAME : SQL_SERVER_NAME);
  if (!source.empty()) dataSource_ = source;
}

void OdbcConnection::Connect(Letters letters) {
  try {
    connection_ = nullptr;
    connection_ = std::make_unique<DriverConnection>(Completed(text_), letters);
  } catch (const DriverFailure& failure) {
    throw failure.What().Error("No se puede conectar con la base de datos: ",
                               Advice(failure.What()));
  }
  const auto product = connection_->Info(SQL_DBMS_NAME);
  engine_ = Names(product, "sqlite")       ? Engine::Sqlite
            : Names(product, "sql server") ? Engine::SqlServer
                                           : Engine::Unknown;
}

void OdbcConnection::Close() { connection_.reset(); }

bool OdbcConnection::IsOpen() const { return connection_ != nullptr; }

std::string OdbcConnection::DataSource() const { return dataSource_; }

bool OdbcConnection::EngineIsSqlServer() const noexcept { return engine_ == Engine::SqlServer; }

bool OdbcConnection::EngineIsSqlite() const noexcept { return engine_ == Engine::Sqlite; }

Recordset OdbcConnection::Run(const std::string& statement) {
  if (!EngineIsSqlite()) return RunText(statement);
  return RunText(sqlite::FlattenJoins(sqlite::RewriteConcatenation(statement)));
}

Recordset OdbcConnection::RunText(const std::string& text) {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + BusyWait(ConnectionString(text_));
  for (;; std::this_thread::sleep_for(kBusyPause)) try {
      return connection_->Execute(text, EngineIsSqlite());
    } catch (const DriverFailure& failure) {
      // The engine waits by itself, but gives up at once where two waits could be for each other.
      // Its statement has then left nothing behind and can begin again.
      if (EngineIsSqlite() && failure.What().HasNative(kSqliteBusy) && Clock::now() < until)
        continue;
      if (!failure.What().HasState("08") && !connection_->IsDead()) throw failure.What().Error();
      Close();
      throw failure.What().Error("Se ha perdido la conexión con la base de datos: ");
    }
}

}  // namespace quorvane::odbc
