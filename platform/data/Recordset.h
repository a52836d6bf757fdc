#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Value.h"

namespace quorvane {

/// The names of a recordset's columns. Shared between all recordsets of one statement.
using FieldNames = std::vector<std::string>;

/// The rows that a statement gave, read whole: it can be walked both ways, counted and filtered,
/// and stays valid whatever later statements do. It stands on its first row, if there is one.
/// A default one is closed; so is that of a statement that gives no columns. Any use of a closed
/// one but `Close` and `IsOpen` is error 3704.
class Recordset {
 public:
  Recordset() = default;
  /// `cells` row by row, as many as there are names in each.
  Recordset(std::shared_ptr<const FieldNames> names, std::vector<Value> cells);

  [[nodiscard]] bool IsOpen() const noexcept { return names_ != nullptr; }
  void Close();

  [[nodiscard]] bool Eof() const;                 ///< behind the last row, or no row at all
  [[nodiscard]] bool Bof() const;                 ///< before the first row, or no row at all
  [[nodiscard]] std::size_t RecordCount() const;  ///< rows that the filter lets through

  void MoveFirst();     ///< error 3021 when there is no row
  void MoveNext();      ///< error 3021 at the end
  void MovePrevious();  ///< error 3021 before the first row

  /// A column of the current row, its name matched without regard to case. Error 3265 when there
  /// is no such column, then 3021 when there is no current row. Valid while the recordset lives.
  [[nodiscard]] const Value& Fields(std::string_view name) const;
  /// The same by position, from 0.
  [[nodiscard]] const Value& Fields(std::size_t position) const;
  [[nodiscard]] const FieldNames& Names() const;

  /// Lets through only the rows that satisfy conditions such as "IDMateria=5 AND Aprobado=0", and
  /// stands on the first of them; the empty text lets all through again. Error 3001 for a text
  /// that can't be read, 3265 for an unknown column.
  void Filter(const std::string& conditions);

 private:
  [[nodiscard]] std::size_t CurrentRow() const;
  void RequireOpen() const;

  std::shared_ptr<const FieldNames> names_;
  std::vector<Value> cells_;
  std::size_t rows_ = 0;              ///< without regard to the filter
  std::vector<std::size_t> passing_;  ///< row numbers, only while a filter is set
  bool filtered_ = false;
  std::ptrdiff_t position_ = 0;  ///< among the rows let through; -1 before the first
};

}  // namespace quorvane
