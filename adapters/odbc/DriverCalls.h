#pragma once

#include <sql.h>
#include <string>
#include <string_view>

namespace quorvane::odbc {

/// How a driver takes and gives texts.
enum class Letters {
  Wide,  ///< UTF-16
  Utf8,  ///< bytes, passed through as they are
};

/// The driver manager's functions that carry texts, in either of their two forms. All texts on
/// this side are UTF-8.
class DriverCalls {
 public:
  explicit DriverCalls(Letters letters) : wide_(letters == Letters::Wide) {}

  [[nodiscard]] SQLRETURN Connect(SQLHDBC connection, std::string_view text) const;
  [[nodiscard]] SQLRETURN Execute(SQLHSTMT statement, std::string_view text) const;
  [[nodiscard]] SQLRETURN Info(SQLHDBC connection, SQLUSMALLINT what, std::string& text) const;
  [[nodiscard]] SQLRETURN DescribeColumn(SQLHSTMT statement, SQLUSMALLINT number, std::string& name,
                                         SQLSMALLINT& type) const;
  /// The same of an engine whose columns have one type, and of its driver only what it knows from
  /// the answer: that of PostgreSQL asks the server for more whenever it describes a column of a
  /// table that is new to it.
  [[nodiscard]] SQLRETURN NameColumn(SQLHSTMT statement, SQLUSMALLINT number, std::string& name,
                                     SQLSMALLINT& type) const;
  [[nodiscard]] SQLRETURN DiagnosticRecord(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                                           std::string& state, SQLINTEGER& native,
                                           std::string& text) const;
  /// A cell as a text of any length. `null` tells whether there is none.
  [[nodiscard]] SQLRETURN CellText(SQLHSTMT statement, SQLUSMALLINT column, std::string& text,
                                   bool& null) const;

 private:
  bool wide_;
};

}  // namespace quorvane::odbc
