#include "adapters/odbc/DriverConnection.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <sqlext.h>
#include <utility>
#include <vector>

#include "adapters/odbc/ColumnReader.h"
#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/DriverFailure.h"
#include "adapters/odbc/DriverSettings.h"
#include "adapters/sqltext/FieldName.h"

namespace quorvane::odbc {
namespace {

constexpr std::uintptr_t kLoginSeconds = 10;
constexpr std::uintptr_t kQuestionSeconds = 6;

SQLPOINTER AsPointer(std::uintptr_t number) {
  // The interface passes numbers where it passes pointers.
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

EnvironmentHandle MakeEnvironment() {
  EnvironmentHandle environment(nullptr);
  SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
  return environment;
}

/// Makes a statement's handle ready for the next, whatever has become of this one.
class Closing {
 public:
  explicit Closing(SQLHSTMT statement) : statement_(statement) {}
  ~Closing() { SQLFreeStmt(statement_, SQL_CLOSE); }
  Closing(const Closing&) = delete;
  Closing& operator=(const Closing&) = delete;
  Closing(Closing&&) = delete;
  Closing& operator=(Closing&&) = delete;

 private:
  SQLHSTMT statement_;
};

/// The driver takes that time for each of the servers that a string names.
std::uintptr_t ForEach(std::uintptr_t seconds, std::size_t servers) {
  return std::max<std::uintptr_t>(seconds / servers, 2);
}

/// Whether there is a server that says anything at all, be it that it is full.
bool Answers(const std::string& connectionString, Letters letters) {
  try {
    const DriverConnection question(connectionString, letters, DriverConnection::Purpose::Question);
    return true;
  } catch (const DriverFailure& failure) {
    return failure.What().ComeFromServer();
  }
}

}  // namespace

DriverConnection::DriverConnection(const std::string& connectionString, Letters letters,
                                   Purpose purpose)
    : calls_(letters), environment_(MakeEnvironment()), connection_(environment_.Get()) {
  if (connection_.Get() == nullptr)
    throw DriverFailure({calls_, SQL_HANDLE_ENV, environment_.Get()});
  const ConnectionString given(connectionString);
  if (purpose == Purpose::Work)
    watch_ = std::make_unique<SilenceWatch>(
        GivenSetting(given, "Port"),
        [connectionString, letters](const std::optional<ServerSockets::Peer>& reached) {
          return Answers(reached ? OnlyAt(connectionString, reached->address, reached->port)
                                 : connectionString,
                         letters);
        });
  const auto seconds = purpose == Purpose::Work ? kLoginSeconds : kQuestionSeconds;
  SQLSetConnectAttr(connection_.Get(), SQL_ATTR_LOGIN_TIMEOUT,
                    AsPointer(ForEach(seconds, NamedServers(connectionString))), 0);
  auto watched = Watched();
  if (!SQL_SUCCEEDED(calls_.Connect(connection_.Get(), connectionString)))
    throw DriverFailure({calls_, SQL_HANDLE_DBC, connection_.Get()});
  watched.reset();
  if (watch_ && !watch_->Connected()) watch_.reset();
  statement_.emplace(connection_.Get());
  // A brace in the text is the engine's, not the driver's to read.
  SQLSetStmtAttr(statement_->Get(), SQL_ATTR_NOSCAN, AsPointer(SQL_NOSCAN_ON), 0);
}

DriverConnection::~DriverConnection() {
  statement_.reset();
  SQLDisconnect(connection_.Get());
}

std::string DriverConnection::Info(SQLUSMALLINT what) const {
  std::string text;
  return SQL_SUCCEEDED(calls_.Info(connection_.Get(), what, text)) ? text : std::string();
}

std::unique_ptr<SilenceWatch::Call> DriverConnection::Watched() const {
  return watch_ ? std::make_unique<SilenceWatch::Call>(*watch_) : nullptr;
}

bool DriverConnection::IsDead() const {
  if (FoundSilence()) return true;
  SQLUINTEGER dead = SQL_CD_FALSE;
  const auto result =
      SQLGetConnectAttr(connection_.Get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead, nullptr);
  return SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE;
}

Recordset DriverConnection::ReadRows(SQLHSTMT statement, SQLSMALLINT count, const std::string& text,
                                     bool isSqlite) const {
  std::vector<ColumnReader> columns;
  FieldNames names;
  columns.reserve(static_cast<std::size_t>(count));
  for (SQLSMALLINT number = 1; number <= count; ++number) {
    columns.emplace_back(calls_, statement, static_cast<SQLUSMALLINT>(number), !isSqlite);
    const auto& name = columns.back().Name();
    names.push_back(isSqlite ? sqltext::FieldName(name, text) : name);
  }
  std::vector<Value> cells;
  auto result = SQLFetch(statement);
  for (; SQL_SUCCEEDED(result); result = SQLFetch(statement))
    for (const auto& column : columns) cells.push_back(column.Read());
  if (result != SQL_NO_DATA) throw DriverFailure({calls_, SQL_HANDLE_STMT, statement});
  return {std::make_shared<const FieldNames>(std::move(names)), std::move(cells)};
}

Recordset DriverConnection::Execute(const std::string& text, bool isSqlite) const {
  auto* const statement = statement_->Get();
  const auto watched = Watched();
  if (statement == nullptr) throw DriverFailure({calls_, SQL_HANDLE_DBC, connection_.Get()});
  const auto require = [&](SQLRETURN result) {
    if (!SQL_SUCCEEDED(result)) throw DriverFailure({calls_, SQL_HANDLE_STMT, statement});
  };
  const Closing closing(statement);
  Recordset rows;
  // Each part of the text gives rows or a count of them. All have to be asked for: a failure of
  // a later one shows when its turn comes.
  for (auto result = calls_.Execute(statement, text); result != SQL_NO_DATA;
       result = SQLMoreResults(statement)) {
    require(result);
    SQLSMALLINT columns = 0;
    require(SQLNumResultCols(statement, &columns));
    if (columns > 0 && !rows.IsOpen()) rows = ReadRows(statement, columns, text, isSqlite);
  }
  return rows;
}

}  // namespace quorvane::odbc
