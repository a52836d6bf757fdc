#pragma once

#include <optional>
#include <sql.h>
#include <string>

#include "adapters/odbc/DriverCalls.h"
#include "adapters/odbc/Handles.h"
#include "platform/data/Recordset.h"

namespace quorvane::odbc {

/// A connection of the driver manager's, from its making to its end.
class DriverConnection {
 public:
  /// DriverFailure when the driver can't be loaded or refuses the connection.
  DriverConnection(const std::string& connectionString, Letters letters);
  ~DriverConnection();
  DriverConnection(const DriverConnection&) = delete;
  DriverConnection& operator=(const DriverConnection&) = delete;
  DriverConnection(DriverConnection&&) = delete;
  DriverConnection& operator=(DriverConnection&&) = delete;

  /// A text that the driver tells of itself or of its server, by the number of `SQLGetInfo`;
  /// empty when it doesn't.
  [[nodiscard]] std::string Info(SQLUSMALLINT what) const;
  /// Whether the driver knows that nobody answers any more.
  [[nodiscard]] bool IsDead() const;

  /// Executes a text of one statement or several, and gives the rows of the first that gives any.
  /// `isSqlite` tells whether that is the engine, which numbers names and lets any column hold any
  /// value. DriverFailure when any of the statements fails.
  [[nodiscard]] Recordset Execute(const std::string& text, bool isSqlite) const;

 private:
  [[nodiscard]] Recordset ReadRows(SQLHSTMT statement, SQLSMALLINT count, const std::string& text,
                                   bool isSqlite) const;

  DriverCalls calls_;
  EnvironmentHandle environment_;
  ConnectionHandle connection_;
  /// For all statements, one after the other: a driver takes longer to make one than to use it.
  std::optional<StatementHandle> statement_;
};

}  // namespace quorvane::odbc
