#pragma once

#include <memory>
#include <optional>
#include <sql.h>
#include <string>

#include "adapters/odbc/DriverCalls.h"
#include "adapters/odbc/Handles.h"
#include "adapters/odbc/SilenceWatch.h"
#include "platform/data/Recordset.h"

namespace quorvane::odbc {

/// A connection of the driver manager's, from its making to its end. A call that a server leaves
/// without an answer fails within half a minute.
class DriverConnection {
 public:
  enum class Purpose {
    Work,
    Question,  ///< to see whether anybody is there at all: waits for a moment only
  };

  /// DriverFailure when the driver can't be loaded or refuses the connection.
  DriverConnection(const std::string& connectionString, Letters letters,
                   Purpose purpose = Purpose::Work);
  ~DriverConnection();
  DriverConnection(const DriverConnection&) = delete;
  DriverConnection& operator=(const DriverConnection&) = delete;
  DriverConnection(DriverConnection&&) = delete;
  DriverConnection& operator=(DriverConnection&&) = delete;

  /// A text that the driver tells of itself or of its server, by the number of `SQLGetInfo`;
  /// empty when it doesn't.
  [[nodiscard]] std::string Info(SQLUSMALLINT what) const;
  /// Whether it is known that nobody answers any more: to the driver, or by the server's silence.
  [[nodiscard]] bool IsDead() const;
  /// Whether a call has been given up because the server had gone silent.
  [[nodiscard]] bool FoundSilence() const { return watch_ && watch_->FoundSilence(); }
  /// Whether the server has ended the connection, be it between two calls.
  [[nodiscard]] bool HungUp() const { return watch_ && watch_->HungUp(); }

  /// Executes a text of one statement or several, and gives the rows of the first that gives any.
  /// `isSqlite` tells whether that is the engine, which numbers names and lets any column hold any
  /// value. DriverFailure when any of the statements fails.
  [[nodiscard]] Recordset Execute(const std::string& text, bool isSqlite) const;

 private:
  [[nodiscard]] Recordset ReadRows(SQLHSTMT statement, SQLSMALLINT count, const std::string& text,
                                   bool isSqlite) const;

  /// Tells the watch of a call, where there is a watch.
  [[nodiscard]] std::unique_ptr<SilenceWatch::Call> Watched() const;

  std::unique_ptr<SilenceWatch> watch_;  ///< none of a question
  DriverCalls calls_;
  EnvironmentHandle environment_;
  ConnectionHandle connection_;
  /// For all statements, one after the other: a driver takes longer to make one than to use it.
  std::optional<StatementHandle> statement_;
};

}  // namespace quorvane::odbc
