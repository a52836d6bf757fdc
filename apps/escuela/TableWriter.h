#pragma once

#include <cstddef>
#include <string>

#include "apps/escuela/RowText.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Writes rows of a table, many with each statement.
class TableWriter {
 public:
  /// `school` is open on `engine` and has the table; both outlive this.
  TableWriter(Connection& school, sqltext::Engine engine, const CopiedTable& table);

  /// The current row of `rows`, which is written with others. Errors as of `RowText`, and what the
  /// engine refuses, with the names of table and rows.
  void Add(const Recordset& rows);
  /// What hasn't been written yet.
  void Flush();

  [[nodiscard]] const RowSum& Sum() const noexcept { return row_.Sum(); }

 private:
  Connection& school_;
  RowText row_;
  std::string table_;
  std::string beginning_;
  std::string statement_;
  std::size_t rows_ = 0;  ///< in the statement
  std::string first_;     ///< their names
  std::string last_;
};

}  // namespace quorvane
