#include "frame/schema/SchoolSchema.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace quorvane {
namespace {

constexpr std::string_view kCreateTable = "CREATE TABLE ";
constexpr std::string_view kPrimaryKey = " PRIMARY KEY ";

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

// The kinds are told by the SQL Server text, whose types tell a flag from a number.
SchemaColumn ReadColumn(const std::string& line) {
  SchemaColumn column;
  std::string type;
  std::istringstream(line) >> column.name >> type;
  column.flag = type == "bit";
  column.text = Contains(type, "varchar");
  column.forHost = Contains(line, "-- host");
  column.freeName = Contains(line, "-- free name");
  column.freePlace = Contains(line, "-- free place");
  return column;
}

/// "CONSTRAINT PK_Curso PRIMARY KEY (IDCurso)": marks the column in the brackets.
void ReadKey(const std::string& line, SchemaTable& table) {
  const auto begin = line.find('(') + 1;
  const auto name = line.substr(begin, line.find(')') - begin);
  for (auto& column : table.columns)
    if (column.name == name) column.key = true;
}

std::vector<SchemaTable> ReadTables() {
  std::vector<SchemaTable> tables;
  std::istringstream lines{std::string(SqlServerSchema())};
  auto inTable = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(kCreateTable)) {
      SchemaTable table;
      std::istringstream(line.substr(kCreateTable.size())) >> table.name;
      table.byPosition = Contains(line, "-- by position");
      tables.push_back(std::move(table));
      inTable = true;
    } else if (line.starts_with(")")) {
      inTable = false;
    } else if (inTable && Contains(line, kPrimaryKey)) {
      ReadKey(line, tables.back());
    } else if (inTable) {
      tables.back().columns.push_back(ReadColumn(line));
    }
  }
  return tables;
}

}  // namespace

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

const std::vector<SchemaTable>& SchoolTables() {
  static const auto tables = ReadTables();
  return tables;
}

}  // namespace quorvane
