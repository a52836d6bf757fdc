#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"

namespace quorvane::test {

/// What has been done to the tables that the module writes, row by row and in the one order in
/// which the database took it. The engine writes it along with each statement, in a file by
/// triggers that belong to the connection and bear the number of its process, on a server as
/// `ServerDiary` tells; the module sees none of it.
class Diary {
 public:
  enum class Action { Insert, Update, Delete };

  /// A row that has come, changed or gone. Rows are their values with | between.
  struct Entry {
    std::int64_t number = 0;
    int process = 0;
    std::string table;
    Action action = Action::Insert;
    std::int64_t row = 0;  ///< the engine's own number of the row
    std::string before;    ///< empty for a row that has come
    std::string after;     ///< empty for a row that has gone
  };

  /// Rows by the engine's own number.
  using Table = std::map<std::int64_t, std::string>;

  /// Makes the diary's table in a school.
  static void Create(Connection& school);
  /// From now on what this connection to a file does is in the diary.
  static void Keep(sqlite::SqliteConnection& connection, int process);
  /// The number of the last entry, 0 for none.
  static std::int64_t Last(Connection& connection);

  static std::vector<Entry> Read(Connection& connection);

  /// The tables that the module writes.
  static const std::vector<std::string>& Tables();
  /// All tables of a school but the diary's own.
  static std::map<std::string, Table> ReadAll(Connection& connection);
  static std::vector<std::string> Columns(Connection& connection, const std::string& table);
};

}  // namespace quorvane::test
