#pragma once

#include <sql.h>
#include <string>

#include "adapters/odbc/DriverCalls.h"
#include "adapters/odbc/Handles.h"
#include "platform/Recordset.h"

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
  /// `typed` as in `ColumnReader`. DriverFailure when any of them fails.
  [[nodiscard]] Recordset Execute(const std::string& text, bool typed) const;

 private:
  [[nodiscard]] Recordset ReadRows(SQLHSTMT statement, SQLSMALLINT count, bool typed) const;

  DriverCalls calls_;
  EnvironmentHandle environment_;
  ConnectionHandle connection_;
};

}  // namespace quorvane::odbc
