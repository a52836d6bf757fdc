#include "adapters/sqlite/Database.h"

#include <sqlite3.h>

#include "platform/RuntimeError.h"

namespace quorvane::sqlite {

void ThrowEngineError(sqlite3* handle) {
  throw RuntimeError(ErrorNumber::StatementFailed, sqlite3_errmsg(handle));
}

void Database::Closer::operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }

Database::Database(const std::string& path, int flags, std::chrono::milliseconds busyWait) {
  sqlite3* handle = nullptr;
  const auto result = sqlite3_open_v2(path.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) ThrowEngineError(handle);
  sqlite3_extended_result_codes(handle, 1);
  sqlite3_busy_timeout(handle, static_cast<int>(busyWait.count()));
  // What has been written stays written, whatever happens to the machine.
  // The pages that the screens of a large school come back to fit 16 MB, which the engine only
  // takes as it needs them.
  Script("PRAGMA synchronous=FULL; PRAGMA cache_size=-16384; PRAGMA schema_version");
}

void Database::Script(const std::string& statements) const {
  if (sqlite3_exec(Handle(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    ThrowEngineError(Handle());
}

}  // namespace quorvane::sqlite
