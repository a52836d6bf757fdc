#include "adapters/odbc/OdbcConnection.h"

#include <chrono>
#include <cstdlib>
#include <span>
#include <sqlext.h>
#include <thread>
#include <utility>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/DriverConnection.h"
#include "adapters/odbc/DriverFailure.h"
#include "adapters/odbc/Waiting.h"
#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::odbc {
namespace {

constexpr std::chrono::milliseconds kBusyWait = std::chrono::seconds(60);
constexpr std::chrono::milliseconds kBusyPause{5};
constexpr SQLINTEGER kSqliteBusy = 5;
constexpr SQLINTEGER kLoginFailed = 18456;

using sqltext::Engine;

/// The engine that the string itself tells of, by its driver.
Engine NamedEngine(const ConnectionString& given) {
  const auto driver = given.Value("Driver");
  return AsciiLower(driver).find("psqlodbc") == std::string::npos ? sqltext::EngineNamed(driver)
                                                                  : Engine::PostgreSql;
}

struct Setting {
  const char* keyword;
  const char* value;
};

/// What the file database's own adapter sees to: a file that isn't there stays so, one that
/// somebody else writes to is waited for, and what is written is durable.
constexpr Setting kForSqlite[] = {{"Timeout", "60000"}, {"NoCreat", "Yes"}, {"SyncPragma", "FULL"}};

/// One round trip a statement, which a pooler can hand to any of its connections; no log of them in
/// the system's temporary folder, as Debian registers the driver; True is a bit;
/// and a server that has gone silent is given up.
constexpr Setting kForPostgreSql[] = {{"UseServerSidePrepare", "0"},
                                      {"UseDeclareFetch", "0"},
                                      {"CommLog", "0"},
                                      {"Debug", "0"},
                                      {"BoolsAsChar", "0"},
                                      {"KeepaliveTime", "30"},
                                      {"KeepaliveInterval", "10"},
                                      {"pqopt", "{keepalives_count=3 tcp_user_timeout=20000}"}};

std::span<const Setting> SettingsFor(Engine engine) {
  if (engine == Engine::Sqlite) return kForSqlite;
  if (engine == Engine::PostgreSql) return kForPostgreSql;
  return {};
}

std::string Completed(const std::string& text, Engine engine) {
  const ConnectionString given(text);
  auto completed = text;
  for (const auto& setting : SettingsFor(engine))
    if (!given.Has(setting.keyword))
      completed += std::string(";") + setting.keyword + "=" + setting.value;
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

/// What asks for the day, in the form of the engine that has one.
std::string DateStatement(Engine engine) {
  if (engine == Engine::PostgreSql) return "SELECT to_char(current_date,'DD/MM/YYYY')";
  if (engine == Engine::SqlServer) return "SELECT CONVERT(varchar(10),getdate(),103)";
  return {};
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
  // The server may have ended it while nobody asked for anything.
  if (IsOpen() && !connection_->HungUp()) return;
  const auto named = NamedEngine(ConnectionString(text_));
  Connect(named);
  // A data source tells its engine only now.
  if (engine_ != named && !SettingsFor(engine_).empty()) Connect(engine_);
  const auto source =
      connection_->Info(engine_ == Engine::Sqlite ? SQL_DATABASE_NAME : SQL_SERVER_NAME);
  if (!source.empty()) dataSource_ = source;
}

void OdbcConnection::Connect(Engine expected) {
  // SQLite's driver loses the letters beyond the first plane in UTF-16, and takes UTF-8 as it is.
  const auto letters = expected == Engine::Sqlite ? Letters::Utf8 : Letters::Wide;
  try {
    connection_ = nullptr;
    Wait([&] {
      connection_ = std::make_unique<DriverConnection>(Completed(text_, expected), letters);
    });
  } catch (const DriverFailure& failure) {
    throw failure.What().Error("No se puede conectar con la base de datos: ",
                               Advice(failure.What()));
  }
  engine_ = sqltext::EngineNamed(connection_->Info(SQL_DBMS_NAME));
}

void OdbcConnection::Close() { connection_.reset(); }

bool OdbcConnection::IsOpen() const { return connection_ != nullptr; }

std::string OdbcConnection::DataSource() const { return dataSource_; }

Recordset OdbcConnection::Run(const std::string& statement) {
  return RunText(sqltext::Put(statement, engine_));
}

std::string OdbcConnection::ServerDate() {
  if (!IsOpen()) throw RuntimeError(ErrorNumber::ObjectClosed);
  const auto statement = DateStatement(engine_);
  return statement.empty() ? statement : RunText(statement).Fields(0).Text();
}

Recordset OdbcConnection::RunText(const std::string& text) {
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + BusyWait(ConnectionString(text_));
  for (;; std::this_thread::sleep_for(kBusyPause)) try {
      Recordset rows;
      Wait([&] { rows = connection_->Execute(text, engine_ == Engine::Sqlite); });
      return rows;
    } catch (const DriverFailure& failure) {
      // The engine waits by itself, but gives up at once where two waits could be for each other.
      // Its statement has then left nothing behind and can begin again.
      if (engine_ == Engine::Sqlite && failure.What().HasNative(kSqliteBusy) &&
          Clock::now() < until)
        continue;
      if (!failure.What().HasState("08") && !connection_->IsDead()) throw failure.What().Error();
      const auto* const why = connection_->FoundSilence() ? "el servidor no contesta: " : "";
      Close();
      throw failure.What().Error(std::string("Se ha perdido la conexión con la base de datos: ") +
                                 why);
    }
}

}  // namespace quorvane::odbc
