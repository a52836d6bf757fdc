#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace quorvane::test {

/// The diary of a school on PostgreSQL. The tables' own triggers write it, one statement after the
/// other up to its end, so that the numbers stand in the order in which others see what was
/// written. Who wrote stands behind each statement as a remark: behind a pooler a session of the
/// server is everybody's.
class ServerDiary {
 public:
  /// Makes it in a school, as its owner. All may read it, and nobody else writes it.
  static void Create(Connection& school);
  /// Removes all tables of the school and the diary.
  static void DropSchool(Connection& school);

  /// A statement that writes as that process executes it: it gives a row for each that it wrote.
  static std::string Signed(const std::string& statement, int process);

  /// The number of the table's rows, as an expression behind a point: its key, or a column of the
  /// diary's that a table without a key gets.
  static std::string RowNumber(const std::string& table);
  static constexpr const char* kOwnColumn = "diario_fila";
  /// A row's values with | between; `of` is a table's name with its point, or nothing.
  static std::string Row(const std::string& table, const std::string& of);
};

}  // namespace quorvane::test
