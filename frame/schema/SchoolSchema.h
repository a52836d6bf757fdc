#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// The school database, as SQL text and as a description. To make an empty school:
///
///   sqlite::SqliteConnection school(path, "", sqlite::OpenMode::Create);
///   school.Open();
///   for (const auto& statement : SchemaStatements(SqliteSchema())) school.Execute(statement);

/// The statements that make an empty school on SQLite, parted by semicolons, with comments.
std::string_view SqliteSchema();
/// The same on SQL Server.
std::string_view SqlServerSchema();

/// The single statements of such a text, without comments, in their order.
std::vector<std::string> SchemaStatements(std::string_view text);

struct SchemaColumn {
  std::string name;
  bool key = false;        ///< the primary key of its table
  bool flag = false;       ///< a True/False column
  bool text = false;       ///< a text or a date; a number otherwise
  bool forHost = false;    ///< only a host needs it
  bool freeName = false;   ///< filled by position alone: another name does as well
  bool freePlace = false;  ///< of a table filled by position, but this one found by its name
};

struct SchemaTable {
  std::string name;
  std::vector<SchemaColumn> columns;
  bool byPosition = false;  ///< the module inserts without naming columns: their order counts
};

/// All tables of the school in the order of the text, columns in their order. Read from the text
/// at the first call.
const std::vector<SchemaTable>& SchoolTables();

}  // namespace quorvane
