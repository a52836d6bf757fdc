#include "frame/schema/SchoolSchema.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "frame/schema/SchemaSql.h"
#include "frame/schema/SchoolSchemaText.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

const SchemaDescription& School() {
  static const auto school = ReadSchema(SchoolSchemaText());
  return school;
}

}  // namespace

std::string_view SqliteSchema() {
  static const auto sql = SchemaSql(School(), kSqliteEngine);
  return sql;
}

std::string_view SqlServerSchema() {
  static const auto sql = SchemaSql(School(), kSqlServerEngine);
  return sql;
}

std::string_view PostgreSqlSchema() {
  static const auto sql = SchemaSql(School(), kPostgreSqlEngine);
  return sql;
}

std::vector<std::string> SchemaStatements(std::string_view text) {
  std::vector<std::string> statements;
  std::string statement;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    line.erase(std::min(line.find("--"), line.size()));
    const auto end = line.find_last_not_of(' ');
    if (end == std::string::npos) continue;
    line.erase(end + 1);
    if (!statement.empty()) statement += '\n';
    statement += line;
    if (statement.back() != ';') continue;
    statement.pop_back();
    statements.push_back(std::exchange(statement, {}));
  }
  return statements;
}

const std::vector<SchemaTable>& SchoolTables() { return School().tables; }

const SchemaTable* FindSchoolTable(std::string_view name) {
  const auto& tables = SchoolTables();
  const auto found = std::find_if(tables.begin(), tables.end(), [name](const SchemaTable& table) {
    return EqualNoCase(table.name, name);
  });
  return found == tables.end() ? nullptr : &*found;
}

}  // namespace quorvane
