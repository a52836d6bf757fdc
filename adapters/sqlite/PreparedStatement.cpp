#include "adapters/sqlite/PreparedStatement.h"

#include <algorithm>
#include <sqlite3.h>
#include <string_view>
#include <utility>

#include "adapters/sqlite/Database.h"
#include "adapters/sqltext/FieldName.h"
#include "platform/RuntimeError.h"

namespace quorvane::sqlite {
namespace {

/// Resets a statement, so that it holds no lock, whichever way its run ends.
class Reset {
 public:
  explicit Reset(sqlite3_stmt* statement) : statement_(statement) {}
  ~Reset() { sqlite3_reset(statement_); }
  Reset(const Reset&) = delete;
  Reset& operator=(const Reset&) = delete;
  Reset(Reset&&) = delete;
  Reset& operator=(Reset&&) = delete;

 private:
  sqlite3_stmt* statement_;
};

void AppendCell(std::vector<Value>& cells, sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      cells.emplace_back(std::int64_t{sqlite3_column_int64(statement, column)});
      break;
    case SQLITE_FLOAT:
      cells.emplace_back(sqlite3_column_double(statement, column));
      break;
    case SQLITE_NULL:
      cells.emplace_back();
      break;
    default: {  // a blob's bytes are taken as a text
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      cells.emplace_back(bytes == nullptr ? std::string() : std::string(bytes, size));
    }
  }
}

bool IsBusy(int result) { return (result & 0xff) == SQLITE_BUSY; }

// What one long list has needed shall not be taken for each short one.
constexpr std::size_t kMostExpectedCells = 1024;

constexpr std::string_view kBlank = " \t\r\n;";

}  // namespace

void PreparedStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

PreparedStatement::PreparedStatement(sqlite3* database, const std::string& text, bool kept)
    : database_(database) {
  sqlite3_stmt* statement = nullptr;
  const char* tail = nullptr;
  const auto flags = kept ? SQLITE_PREPARE_PERSISTENT : 0U;
  const auto result = sqlite3_prepare_v3(database, text.c_str(), static_cast<int>(text.size() + 1),
                                         flags, &statement, &tail);
  statement_.reset(statement);
  if (result != SQLITE_OK) ThrowEngineError(database);
  if (std::string_view(tail).find_first_not_of(kBlank) != std::string_view::npos)
    throw RuntimeError(ErrorNumber::StatementFailed, "Solo se admite una sentencia cada vez");
  if (statement != nullptr) ReadNames();
}

void PreparedStatement::ReadNames() {
  const auto count = sqlite3_column_count(statement_.get());
  FieldNames names;
  names.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    names.push_back(sqltext::FieldName(sqlite3_column_name(statement_.get(), i),
                                       sqlite3_sql(statement_.get())));
  names_ = std::make_shared<const FieldNames>(std::move(names));
  preparations_ = sqlite3_stmt_status(statement_.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
}

void PreparedStatement::Bind(const std::vector<std::int64_t>& values) {
  for (std::size_t i = 0; i < values.size(); ++i)
    if (sqlite3_bind_int64(statement_.get(), static_cast<int>(i + 1), values[i]) != SQLITE_OK)
      ThrowEngineError(database_);
}

bool PreparedStatement::Writes() const { return sqlite3_stmt_readonly(statement_.get()) == 0; }

int PreparedStatement::Step(std::vector<Value>& cells) {
  auto* const statement = statement_.get();
  auto result = sqlite3_step(statement);
  // The engine prepares a statement anew when the tables have changed: `*` may give others now.
  if (sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0) != preparations_) ReadNames();
  const auto columns = sqlite3_column_count(statement);
  if (result == SQLITE_ROW)
    cells.reserve(std::max(static_cast<std::size_t>(columns), expectedCells_));
  for (; result == SQLITE_ROW; result = sqlite3_step(statement))
    for (int i = 0; i < columns; ++i) AppendCell(cells, statement, i);
  expectedCells_ = std::min(cells.size(), kMostExpectedCells);
  return result;
}

Recordset PreparedStatement::Run(const std::vector<std::int64_t>& values,
                                 std::chrono::milliseconds busyWait) {
  if (statement_ == nullptr) return {};
  using Clock = std::chrono::steady_clock;
  const auto alone = sqlite3_get_autocommit(database_) != 0;
  Bind(values);
  const Reset reset(statement_.get());
  std::vector<Value> cells;
  auto result = Step(cells);
  // The engine waits by itself, but gives up at once where two waits could be for each other.
  // A statement of its own has then left nothing behind and can begin again.
  if (IsBusy(result) && alone) {
    const auto until = Clock::now() + busyWait;
    while (IsBusy(result) && Clock::now() < until) {
      sqlite3_reset(statement_.get());
      cells.clear();
      sqlite3_sleep(5);
      result = Step(cells);
    }
  }
  if (result != SQLITE_DONE) ThrowEngineError(database_);
  return Recordset(names_, std::move(cells));
}

}  // namespace quorvane::sqlite
