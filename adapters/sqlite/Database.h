#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "adapters/sqlite/OpenedFile.h"

struct sqlite3;
struct sqlite3_stmt;

namespace quorvane::sqlite {

/// What the engine refused, as the runtime's error with the engine's own text; behind it, where the
/// disk is to blame, what to do.
[[noreturn]] void ThrowEngineError(sqlite3* handle);

/// An open database file. All failures are error 0x80004005. Nothing is committed to a file that is
/// no longer in its place, see `OpenedFile`: not by a transaction that was open before either, nor
/// by a statement that had to wait.
class Database {
 public:
  /// `flags` as the engine's open flags; where they make files, ":memory:" and no path at all make
  /// a database without one. Reads the file's header, so that a file that is no
  /// database fails here.
  Database(const std::string& path, int flags, std::chrono::milliseconds busyWait);

  [[nodiscard]] sqlite3* Handle() const noexcept { return handle_.get(); }

  [[nodiscard]] OpenedFile& File() const noexcept { return *file_; }

  /// Executes statements parted by semicolons, up to the first failure; one that writes only when
  /// `File` may be written.
  void Script(const std::string& statements) const;

 private:
  struct Wait {
    std::chrono::milliseconds longest{0};
    std::chrono::steady_clock::time_point until;
  };
  /// Whether to try again, for the engine.
  static int WaitForOther(void* wait, int tries);
  /// Whether to roll back instead, for the engine.
  static int RefuseCommit(void* file);

  void RunThrough(sqlite3_stmt* statement) const;

  struct Closer {
    void operator()(sqlite3* handle) const;
  };
  std::unique_ptr<Wait> wait_;
  std::unique_ptr<OpenedFile> file_;  // before the handle: the engine asks for it up to its end
  std::unique_ptr<sqlite3, Closer> handle_;
};

}  // namespace quorvane::sqlite
