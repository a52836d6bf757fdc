#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/schema/SchemaTable.h"

namespace quorvane {

/// The school database, as SQL text and as a description, both made from school.schema. To make an
/// empty school:
///
///   sqlite::SqliteConnection school(path, "", sqlite::OpenMode::Create);
///   school.Open();
///   for (const auto& statement : SchemaStatements(SqliteSchema())) school.Execute(statement);

/// The statements that make an empty school on SQLite, parted by semicolons, with comments.
std::string_view SqliteSchema();
/// The same on SQL Server.
std::string_view SqlServerSchema();
/// And on PostgreSQL.
std::string_view PostgreSqlSchema();

/// The single statements of such a text, without comments, in their order.
std::vector<std::string> SchemaStatements(std::string_view text);

/// All tables of the school in the order of the text, columns in their order. Read at the first
/// call.
const std::vector<SchemaTable>& SchoolTables();

/// The one of that name, matched without regard to case; null where the school has none.
const SchemaTable* FindSchoolTable(std::string_view name);

}  // namespace quorvane
