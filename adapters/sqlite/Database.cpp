#include "adapters/sqlite/Database.h"

#include <cerrno>
#include <sqlite3.h>

#include "platform/RuntimeError.h"

namespace quorvane::sqlite {
namespace {

/// What the user can do about a disk that doesn't take what is written; empty where the engine's
/// own words are all that there is to say.
std::string Advice(sqlite3* handle) {
  const auto result = sqlite3_errcode(handle) & 0xff;
  const auto error = sqlite3_system_errno(handle);
  const auto ofDisk = result == SQLITE_IOERR || result == SQLITE_CANTOPEN;
  if (result == SQLITE_FULL || (ofDisk && (error == ENOSPC || error == EFBIG || error == EDQUOT)))
    return "No queda espacio en el disco: haga sitio y repita lo último.";
  // Who has only promised to read is refused in the same way.
  const auto readOnly =
      result == SQLITE_READONLY && (sqlite3_db_readonly(handle, "main") == 1 ||
                                    sqlite3_extended_errcode(handle) != SQLITE_READONLY);
  if (readOnly || (ofDisk && (error == EROFS || error == EACCES)))
    return "No se puede escribir: dé permiso de escritura sobre el archivo y sobre su carpeta.";
  if (result == SQLITE_IOERR) return "El disco ha fallado: compruebe que queda espacio en él.";
  return {};
}

/// A path is a path: the engine takes some names for something else, an address or no file at all.
std::string EnginePath(const std::string& path, int flags) {
  const auto noFile = (flags & SQLITE_OPEN_CREATE) != 0 && (path.empty() || path == ":memory:");
  return noFile || path.starts_with('/') ? path : "./" + path;
}

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

}  // namespace

void ThrowEngineError(sqlite3* handle) {
  const std::string text = sqlite3_errmsg(handle);
  const auto advice = Advice(handle);
  throw RuntimeError(ErrorNumber::StatementFailed, advice.empty() ? text : text + ". " + advice);
}

void Database::Closer::operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }

// The engine's own way of waiting sleeps longer with each try, so that who has waited long comes
// behind who has just come: with many users some would wait for seconds.
int Database::WaitForOther(void* wait, int tries) {
  constexpr int kMilliseconds = 2;
  auto& self = *static_cast<Wait*>(wait);
  const auto now = std::chrono::steady_clock::now();
  if (tries == 0) self.until = now + self.longest;
  if (now >= self.until) return 0;
  sqlite3_sleep(kMilliseconds);
  return 1;
}

Database::Database(const std::string& path, int flags, std::chrono::milliseconds busyWait)
    : wait_(std::make_unique<Wait>()) {
  sqlite3* handle = nullptr;
  const auto result = sqlite3_open_v2(EnginePath(path, flags).c_str(), &handle,
                                      flags | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) ThrowEngineError(handle);
  sqlite3_extended_result_codes(handle, 1);
  wait_->longest = busyWait;
  sqlite3_busy_handler(handle, WaitForOther, wait_.get());
  file_ = std::make_unique<OpenedFile>(handle, path);
  sqlite3_commit_hook(handle, RefuseCommit, file_.get());
  // What has been written stays written, whatever happens to the machine.
  // The pages that the screens of a large school come back to fit 16 MB, which the engine only
  // takes as it needs them.
  Script("PRAGMA synchronous=FULL; PRAGMA cache_size=-16384; PRAGMA schema_version");
}

int Database::RefuseCommit(void* file) {
  const auto now = std::chrono::steady_clock::now();
  return static_cast<OpenedFile*>(file)->MayWrite(now) ? 0 : 1;
}

void Database::Script(const std::string& statements) const {
  for (const char* rest = statements.c_str(); *rest != '\0';) {
    sqlite3_stmt* prepared = nullptr;
    const auto result = sqlite3_prepare_v2(Handle(), rest, -1, &prepared, &rest);
    const std::unique_ptr<sqlite3_stmt, Finalizer> statement(prepared);
    if (result != SQLITE_OK) ThrowEngineError(Handle());
    if (prepared != nullptr) RunThrough(prepared);
  }
}

void Database::RunThrough(sqlite3_stmt* statement) const {
  if (sqlite3_stmt_readonly(statement) == 0)
    file_->RequireForWrite(std::chrono::steady_clock::now());
  auto result = SQLITE_ROW;
  while (result == SQLITE_ROW) result = sqlite3_step(statement);
  if (result != SQLITE_DONE) ThrowEngineError(Handle());
}

}  // namespace quorvane::sqlite
