#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// The column that tells the how manieth of its like a row is.
inline constexpr auto kDoubleRank = "LugarDoble";

/// The rows of a table that stand behind another with the same values in some columns. Rows that
/// are alike in every column have nothing to be told apart by but their place in the file.
class DoubledRows {
 public:
  /// `columns` as in a GROUP BY. Of such rows the first stays, by `order` (an ORDER BY, may be
  /// empty) and then by all columns.
  DoubledRows(Connection& school, std::string_view table, std::string_view columns,
              std::string_view order = {});

  [[nodiscard]] bool Any() const;
  /// Their columns, and behind them the marks of bytes, where these are read, and `kDoubleRank`.
  [[nodiscard]] Recordset Read() const;
  void Remove() const;
  /// Gives one of those that satisfy `condition` a value in a column; which one is the engine's to
  /// choose.
  void Set(std::string_view column, std::int32_t value, const std::string& condition) const;

 private:
  [[nodiscard]] std::string Ranked(const std::string& selection) const;
  [[nodiscard]] std::string RowAddress() const;

  Connection& school_;
  sqltext::Engine engine_;
  std::string table_;
  std::string columns_;
  std::string order_;
};

}  // namespace quorvane
