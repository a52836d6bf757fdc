#pragma once

#include <sql.h>
#include <string>

#include "adapters/odbc/DriverCalls.h"
#include "platform/data/Value.h"

namespace quorvane::odbc {

/// One column of a result: its name, and how its cells become values. What the driver refuses is
/// DriverFailure.
class ColumnReader {
 public:
  /// Column `number`, from 1, of what the statement gave; both have to outlive the reader. `typed`
  /// tells whether a column's type holds for all of its cells; in an engine where it doesn't, of a
  /// column of numbers what reads as one becomes one.
  ColumnReader(const DriverCalls& calls, SQLHSTMT statement, SQLUSMALLINT number, bool typed);

  [[nodiscard]] const std::string& Name() const noexcept { return name_; }

  /// The cell of the row that the statement stands on.
  [[nodiscard]] Value Read() const;

 private:
  enum class Kind { Whole, Bit, Real, Numeral, Date, Text };

  static Kind KindOf(SQLSMALLINT type, bool typed);

  [[nodiscard]] Value ReadWhole() const;
  [[nodiscard]] Value ReadBit() const;
  [[nodiscard]] Value ReadReal() const;
  [[nodiscard]] Value ReadNumeral() const;
  [[nodiscard]] Value ReadDate() const;
  [[nodiscard]] Value ReadText() const;

  /// Gets a cell of a fixed size; false for Null.
  bool Get(SQLSMALLINT type, void* target, SQLLEN size) const;
  void Require(SQLRETURN result) const;

  const DriverCalls& calls_;
  SQLHSTMT statement_;
  SQLUSMALLINT number_;
  std::string name_;
  Kind kind_ = Kind::Text;
};

}  // namespace quorvane::odbc
