#include "adapters/odbc/OdbcConnection.h"

#include <cstdint>
#include <sqlext.h>
#include <thread>
#include <utility>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/DriverConnection.h"
#include "adapters/odbc/DriverFailure.h"
#include "adapters/odbc/DriverSettings.h"
#include "adapters/odbc/FailureWords.h"
#include "adapters/odbc/SupportedServer.h"
#include "adapters/odbc/Waiting.h"
#include "platform/RuntimeError.h"
#include "platform/text/PlainNumber.h"
#include "platform/text/VisibleText.h"

namespace quorvane::odbc {
namespace {

constexpr std::chrono::milliseconds kBusyWait = std::chrono::seconds(60);
constexpr std::chrono::milliseconds kNoWait{0};
constexpr std::chrono::milliseconds kBusyPause{5};
constexpr SQLINTEGER kSqliteBusy = 5;

using sqltext::Engine;

/// How long a file's driver waits for who has it locked. Error 0x80004005 in Spanish when the
/// string doesn't say it plainly.
std::chrono::milliseconds BusyWait(const ConnectionString& given) {
  if (given.Value("Timeout").empty()) return kBusyWait;
  if (const auto wait = PlainNumber<std::uint32_t>(given.Value("Timeout")))
    return std::chrono::milliseconds(*wait);
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "El valor de Timeout no vale: " + given.Value("Timeout") +
                         ". Son milisegundos, en decimal y sin ceros por delante");
}

/// What asks for the day, in the form of the engine that has one.
std::string DateStatement(Engine engine) {
  if (engine == Engine::PostgreSql) return "SELECT to_char(current_date,'DD/MM/YYYY')";
  if (engine == Engine::SqlServer) return "SELECT CONVERT(varchar(10),getdate(),103)";
  return {};
}

/// What a driver manager may be given, to whom a NUL is the string's end.
void RequireFit(const std::string& text) {
  constexpr std::size_t kMost = 8000;  // of what may hold nothing that is read as a keyword
  auto reason = ConnectionString(text).TooLong();
  // It isn't repeated, since it may hold a password.
  if (ConnectionString::IsAddress(text))
    reason =
        "Una dirección como «postgresql://…» no es una cadena de conexión. Escriba lo mismo así: "
        "Driver=PostgreSQL Unicode;Server=escuela;Port=5432;Database=centro;UID=zendria";
  if (reason.empty() && text.size() > kMost) reason = "La cadena de conexión es demasiado larga";
  if (text.find('\0') != std::string::npos) reason = "La cadena de conexión lleva un carácter nulo";
  if (!reason.empty()) throw RuntimeError(ErrorNumber::StatementFailed, reason);
}

/// What PostgreSQL's driver takes of a list of ports; the rest it drops, and goes to another port.
void RequireWholePorts(const std::string& text) {
  constexpr std::size_t kMost = 9;
  const auto ports = GivenSetting(ConnectionString(text), "Port");
  if (ports.size() > kMost)
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "El controlador de PostgreSQL solo toma los nueve primeros caracteres de "
                       "Port, y «" +
                           VisibleText(ports) +
                           "» tiene más: ponga los servidores en el mismo puerto");
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
  RequireFit(text_);
  const auto first = engine_ == Engine::Unknown;
  const auto named = first ? NamedEngine(text_) : engine_;
  if (named == Engine::PostgreSql) RequireWholePorts(text_);
  Connect(named);
  // A driver under another name tells its engine only now, and lacks what that needs.
  if (engine_ != named && Completed(text_, engine_) != Completed(text_, named)) Connect(engine_);
  if (first) RequireSupport();
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
                               Advice(failure.What(), text_));
  }
  engine_ = sqltext::EngineNamed(connection_->Info(SQL_DBMS_NAME));
}

void OdbcConnection::RequireSupport() {
  try {
    RequireSupported(*connection_, engine_);
    busyWait_ = engine_ == Engine::Sqlite ? BusyWait(ConnectionString(text_)) : kNoWait;
  } catch (const DriverFailure& failure) {
    Forget();
    throw failure.What().Error("No se puede conectar con la base de datos: ",
                               WordsFor(failure.What()));
  } catch (const RuntimeError&) {
    Forget();
    throw;
  }
}

void OdbcConnection::Forget() {
  Close();
  engine_ = Engine::Unknown;
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
  const auto until = Clock::now() + busyWait_;
  for (;; std::this_thread::sleep_for(kBusyPause)) try {
      Recordset rows;
      Wait([&] { rows = connection_->Execute(text, engine_ == Engine::Sqlite); });
      return rows;
    } catch (const DriverFailure& failure) {
      // The engine waits by itself, but gives up at once where two waits could be for each other.
      // Its statement has then left nothing behind and can begin again.
      if (failure.What().HasNative(kSqliteBusy) && Clock::now() < until) continue;
      if (!failure.What().HasState("08") && !connection_->IsDead())
        throw failure.What().Error({}, WordsFor(failure.What()));
      const auto* const why = connection_->FoundSilence() ? "el servidor no contesta: " : "";
      Close();
      throw failure.What().Error(std::string("Se ha perdido la conexión con la base de datos: ") +
                                 why);
    }
}

}  // namespace quorvane::odbc
