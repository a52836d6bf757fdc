#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/data/Connection.h"

namespace quorvane::sqlite {

enum class OpenMode {
  ReadWrite,  ///< the file must be there
  ReadOnly,   ///< the file must be there; writing statements fail
  Create,     ///< the file is made when it isn't there, and may be empty
};

/// A connection to a school in a file. Made closed; `Open` may throw, the constructor doesn't:
///
///   SqliteConnection centro(path, "centro");
///   centro.Open();
///   auto rows = centro.Execute("SELECT IDAlumno FROM Alumno");
///
/// Writing is durable when `Execute` returns, and the file's journal mode is left as it is. A file
/// that another connection holds is waited for, up to `BusyWait`. All failures, of `Open` too, are
/// error 0x80004005. To be used by one thread at a time; open as many on one file as you like.
///
/// Nothing is written to a file that has been deleted, moved, or replaced by another since it was
/// opened: whatever would write fails, with a text in Spanish that tells which of these it was,
/// until the file is back in its place or the connection has been closed and opened again. It is
/// looked for before a write, at most once a second: what is written within a second of its loss
/// may be lost with it. `Open` on an open connection looks for it at once, as before a screen is
/// opened.
class SqliteConnection : public Connection {
 public:
  /// `name` as in `Connection`: empty for one that is not traced.
  SqliteConnection(std::string path, std::string name, OpenMode mode = OpenMode::ReadWrite);
  ~SqliteConnection() override;
  SqliteConnection(const SqliteConnection&) = delete;
  SqliteConnection& operator=(const SqliteConnection&) = delete;
  SqliteConnection(SqliteConnection&&) = delete;
  SqliteConnection& operator=(SqliteConnection&&) = delete;

  /// Fails with a text in Spanish when the file is missing, empty, unreadable or no database; on an
  /// open connection, which stays open, when it isn't in its place any more.
  void Open() override;
  void Close() override;
  [[nodiscard]] bool IsOpen() const override;
  [[nodiscard]] std::string DataSource() const override;  ///< the file's path

  /// How long a statement waits for another connection's write; 60 s when not set. Takes effect
  /// at the next `Open`.
  void BusyWait(std::chrono::milliseconds wait) { wait_ = wait; }

  /// Executes statements parted by semicolons, untraced and unobserved, up to the first failure.
  void ExecuteScript(const std::string& statements);

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  struct State;

  std::string path_;
  OpenMode mode_;
  std::chrono::milliseconds wait_{std::chrono::seconds(60)};
  std::unique_ptr<State> state_;  ///< null while closed
};

}  // namespace quorvane::sqlite
