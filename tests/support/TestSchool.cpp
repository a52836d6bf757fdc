#include "tests/support/TestSchool.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/support/ServerSchools.h"

namespace quorvane::test {
namespace {

// A test's school need not survive the machine.
constexpr const char* kFast = "PRAGMA synchronous=OFF;";

std::string NewPath() {
  static std::atomic<int> count = 0;
  const auto name = "quorvane-" + std::to_string(getpid()) + "-" + std::to_string(++count);
  return (std::filesystem::temp_directory_path() / (name + ".sqlite")).string();
}

[[noreturn]] void Fail(const std::string& statement, const RuntimeError& error) {
  // What only SQLite understands ends the test that asks for it.
  if (OnServer()) throw std::runtime_error(error.Description() + " " + statement);
  std::fprintf(stderr, "%s\n%s\n", error.what(), statement.c_str());
  std::abort();
}

std::string CellText(const Value& value) { return value.IsNull() ? "NULL" : value.Text(); }

Recordset ReadFile(const std::string& path, const std::string& select) {
  sqlite::SqliteConnection school(path, "", sqlite::OpenMode::ReadOnly);
  school.Open();
  return school.Execute(select);
}

void MakeFile(const std::string& path) {
  // A program that was killed may have left one of that name.
  std::filesystem::remove(path);
  sqlite::SqliteConnection school(path, "", sqlite::OpenMode::Create);
  school.Open();
  school.ExecuteScript(kFast + ("BEGIN;" + std::string(SqliteSchema())) + ";COMMIT;");
}

}  // namespace

TestSchool::TestSchool() : path_(OnServer() ? TakeServerSchool() : NewPath()) {
  if (!OnServer()) MakeFile(path_);
}

TestSchool::~TestSchool() {
  if (OnServer()) {
    GiveBackServerSchool(path_);
    return;
  }
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

void TestSchool::Sql(const std::string& statements) const {
  try {
    if (OnServer()) {
      OwnersConnection(path_).Execute(statements);
      return;
    }
    sqlite::SqliteConnection school(path_, "");
    school.Open();
    school.ExecuteScript(kFast + statements);
  } catch (const RuntimeError& error) {
    Fail(statements, error);
  }
}

std::vector<std::string> TestSchool::Rows(const std::string& select) const {
  std::vector<std::string> rows;
  try {
    auto found = OnServer() ? OwnersConnection(path_).Execute(select) : ReadFile(path_, select);
    for (; !found.Eof(); found.MoveNext()) {
      std::string row;
      for (std::size_t i = 0; i < found.Names().size(); ++i)
        row += (i > 0 ? "|" : "") + CellText(found.Fields(i));
      rows.push_back(row);
    }
  } catch (const RuntimeError& error) {
    Fail(select, error);
  }
  return rows;
}

}  // namespace quorvane::test
