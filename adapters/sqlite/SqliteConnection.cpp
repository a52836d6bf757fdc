#include "adapters/sqlite/SqliteConnection.h"

#include <filesystem>
#include <sqlite3.h>
#include <system_error>
#include <utility>
#include <vector>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/StatementCache.h"
#include "adapters/sqlite/StatementLifter.h"
#include "adapters/sqltext/Dialect.h"
#include "platform/RuntimeError.h"

namespace quorvane::sqlite {
namespace {

/// The module's text as this engine takes it, and takes it fast.
std::string ForEngine(std::string_view statement) {
  return sqltext::Put(statement, sqltext::Engine::Sqlite);
}

// The module has some two hundred shapes of statements, and lists of several lengths in a few.
constexpr std::size_t kKeptStatements = 512;

int OpenFlags(OpenMode mode) {
  return mode == OpenMode::Create ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                                  : SQLITE_OPEN_READWRITE;
}

[[noreturn]] void ThrowOpenError(const std::string& path, const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "No se puede abrir la base de datos " + path + ": " + reason);
}

// What the engine would pass over, or tell less clearly.
void RequireFile(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) ThrowOpenError(path, "el archivo no existe");
  if (std::filesystem::is_directory(status)) ThrowOpenError(path, "es una carpeta");
  // A pipe would be waited for.
  if (!std::filesystem::is_regular_file(status))
    ThrowOpenError(path, "no es un archivo corriente, sino un dispositivo o una tubería");
  if (std::filesystem::file_size(path, error) == 0 && !error)
    ThrowOpenError(path, "el archivo está vacío");
}

}  // namespace

struct SqliteConnection::State {
  State(const std::string& path, OpenMode mode, std::chrono::milliseconds busyWait)
      : wait(busyWait), database(path, OpenFlags(mode), busyWait), cache(kKeptStatements) {
    // Who opens a file for reading alone can't clear its log away when he closes it; who only
    // promises to read can.
    if (mode == OpenMode::ReadOnly) database.Script("PRAGMA query_only=1");
  }

  /// Does what may fail for no other reason than that the file has gone, which then is the one
  /// told.
  template <class Work>
  auto OnFile(const Work& work) const {
    try {
      return work();
    } catch (const RuntimeError&) {
      database.File().Require();
      throw;
    }
  }

  Recordset RunOnce(const std::string& statement) const {
    PreparedStatement once(database.Handle(), ForEngine(statement), false);
    return Run(once, {});
  }

  Recordset Run(PreparedStatement& statement, const std::vector<std::int64_t>& bound) const {
    if (statement.Writes()) database.File().RequireForWrite(std::chrono::steady_clock::now());
    return OnFile([&] { return statement.Run(bound, wait); });
  }

  PreparedStatement* FindOrPrepare() {
    const auto& lifted = lifter.Text();
    if (auto* const kept = cache.Find(lifted); kept != nullptr) return kept;
    try {
      return &cache.Add(lifter.Shape(),
                        PreparedStatement(database.Handle(), ForEngine(lifted), true));
    } catch (const RuntimeError&) {
      // The statement's own text gives the engine's own words for what is wrong, if it is.
      return nullptr;
    }
  }

  std::chrono::milliseconds wait;
  Database database;
  StatementLifter lifter;
  std::vector<std::int64_t> values;  // of the statement that is being run
  StatementCache cache;              // behind the database: its statements go first
};

SqliteConnection::SqliteConnection(std::string path, std::string name, OpenMode mode)
    : Connection(std::move(name)), path_(std::move(path)), mode_(mode) {}

SqliteConnection::~SqliteConnection() = default;

void SqliteConnection::Open() {
  if (IsOpen()) return state_->database.File().Require();
  if (mode_ != OpenMode::Create) RequireFile(path_);
  try {
    state_ = std::make_unique<State>(path_, mode_, wait_);
  } catch (const RuntimeError& error) {
    ThrowOpenError(path_, error.Description());
  }
}

void SqliteConnection::Close() { state_.reset(); }

bool SqliteConnection::IsOpen() const { return state_ != nullptr; }

std::string SqliteConnection::DataSource() const { return path_; }

void SqliteConnection::ExecuteScript(const std::string& statements) {
  if (!IsOpen()) throw RuntimeError(ErrorNumber::ObjectClosed);
  RequireWhole(statements);
  state_->OnFile([&] { state_->database.Script(statements); });
}

Recordset SqliteConnection::Run(const std::string& statement) {
  auto& state = *state_;
  if (auto* const following = state.cache.Following(statement, state.values); following != nullptr)
    return state.Run(*following, state.values);
  if (state.lifter.Lift(statement)) {
    auto* const prepared = state.FindOrPrepare();
    if (prepared != nullptr) return state.Run(*prepared, state.lifter.Values());
  }
  return state.RunOnce(statement);
}

}  // namespace quorvane::sqlite
