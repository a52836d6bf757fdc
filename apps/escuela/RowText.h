#pragma once

#include <cstdint>
#include <string>

#include "adapters/sqltext/Dialect.h"
#include "apps/escuela/CopiedTable.h"
#include "platform/data/Recordset.h"

namespace quorvane {

/// How many rows, and what they hold together, in whatever order they came.
struct RowSum {
  std::uint64_t rows = 0;
  std::uint64_t content = 0;
  bool operator==(const RowSum&) const = default;
};

/// The rows of a table one after the other, as an INSERT on an engine takes them.
class RowText {
 public:
  /// `table` outlives this.
  RowText(const CopiedTable& table, sqltext::Engine engine) : table_(table), engine_(engine) {}

  /// The current row of `rows`: "(1,'a',NULL)". Error 0x80004005 in Spanish, which names table, row
  /// and column, for a value that wouldn't arrive as it is.
  const std::string& Of(const Recordset& rows);

  /// Of all rows so far.
  [[nodiscard]] const RowSum& Sum() const noexcept { return sum_; }
  /// How the last row is called: by its key, or without one by its number, from 1.
  [[nodiscard]] std::string Name(const Recordset& rows) const;

 private:
  const CopiedTable& table_;
  sqltext::Engine engine_;
  std::string text_;
  RowSum sum_;
};

}  // namespace quorvane
