#include "tests/support/ServerSchools.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <unistd.h>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"
#include "frame/schema/SchoolSchema.h"
#include "tests/support/ServerRights.h"

namespace quorvane::test {
namespace {

std::string Variable(const char* name) {
  const auto* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

/// All tables and columns.
std::string Shape(Connection& school) {
  return school
      .Execute(
          "SELECT string_agg(table_name || '.' || column_name, ' ' ORDER BY table_name, "
          "ordinal_position) FROM information_schema.columns WHERE table_schema='public'")
      .Fields(0)
      .Text();
}

std::string& Shape() {
  static std::string first;
  return first;
}

std::string Make(std::size_t number) {
  const auto name = "escuela_" + std::to_string(getpid()) + "_" + std::to_string(number);
  odbc::OdbcConnection server(OwnerString("postgres"), "");
  server.Open();
  server.Execute("CREATE DATABASE " + name);
  auto& school = OwnersConnection(name);
  for (const auto& statement : SchemaStatements(PostgreSqlSchema())) school.Execute(statement);
  for (const auto& grant : ServerRights()) school.Execute(grant);
  if (Shape().empty()) Shape() = Shape(school);
  return name;
}

std::vector<std::string>& Free() {
  static std::vector<std::string> databases;
  return databases;
}

}  // namespace

bool OnServer() { return !Variable("QUORVANE_PRUEBAS_SERVIDOR").empty(); }

std::string ServerString(const std::string& database) {
  return Variable("QUORVANE_PRUEBAS_SERVIDOR") + ";Database=" + database;
}

std::string OwnerString(const std::string& database) {
  return Variable("QUORVANE_PRUEBAS_DUENA") + ";Database=" + database;
}

std::string TakeServerSchool() {
  static std::size_t made = 0;
  if (Free().empty()) return Make(++made);
  auto database = Free().back();
  Free().pop_back();
  return database;
}

Connection& OwnersConnection(const std::string& database) {
  static std::map<std::string, std::unique_ptr<odbc::OdbcConnection>> connections;
  auto& connection = connections[database];
  if (!connection) connection = std::make_unique<odbc::OdbcConnection>(OwnerString(database), "");
  connection->Open();
  return *connection;
}

void GiveBackServerSchool(const std::string& database) {
  auto& school = OwnersConnection(database);
  // One whose tables a test has altered isn't used again.
  if (Shape(school) != Shape()) return;
  std::string statements;
  for (const auto& table : SchoolTables()) statements += "DELETE FROM " + table.name + ";";
  school.Execute(statements);
  Free().push_back(database);
}

}  // namespace quorvane::test
