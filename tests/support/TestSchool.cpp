#include "tests/support/TestSchool.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
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

/// The bytes of a file with all tables and no rows, made once.
const std::string& EmptyFile() {
  static const auto bytes = [] {
    const auto path = NewPath();
    // A program that was killed may have left one of that name.
    std::filesystem::remove(path);
    {
      sqlite::SqliteConnection school(path, "", sqlite::OpenMode::Create);
      school.Open();
      school.ExecuteScript(kFast + ("BEGIN;" + std::string(SqliteSchema())) + ";COMMIT;");
    }
    std::ifstream file(path, std::ios::binary);
    std::string read(std::istreambuf_iterator<char>(file), {});
    std::filesystem::remove(path);
    return read;
  }();
  return bytes;
}

}  // namespace

TestSchool::TestSchool() : path_(OnServer() ? TakeServerSchool() : NewPath()) {
  if (OnServer()) return;
  std::ofstream(path_, std::ios::binary) << EmptyFile();
  // As the tools make one: a school that everybody reads is warned of.
  using std::filesystem::perms;
  std::filesystem::permissions(path_, perms::owner_read | perms::owner_write);
}

TestSchool::~TestSchool() {
  if (OnServer()) {
    GiveBackServerSchool(path_);
    return;
  }
  file_.reset();
  std::error_code ignored;
  std::filesystem::remove(path_, ignored);
}

sqlite::SqliteConnection& TestSchool::File() const {
  try {
    if (file_) file_->Open();
  } catch (const RuntimeError&) {
    file_.reset();  // another file has taken the place of that one
  }
  if (!file_) {
    file_ = std::make_unique<sqlite::SqliteConnection>(path_, "");
    file_->Open();
    file_->ExecuteScript(kFast);
  }
  return *file_;
}

void TestSchool::Do(const std::string& statements) const {
  if (OnServer()) {
    OwnersConnection(path_).Execute(statements);
    return;
  }
  // Who closes a file with a log beside it last puts both in order: it isn't kept open then.
  if (statements.find("journal_mode") != std::string::npos) {
    file_.reset();
    keepsOpen_ = false;
  }
  File().ExecuteScript(statements);
  if (!keepsOpen_) file_.reset();
}

Recordset TestSchool::Ask(const std::string& select) const {
  if (OnServer()) return OwnersConnection(path_).Execute(select);
  auto found = File().Execute(select);
  if (!keepsOpen_) file_.reset();
  return found;
}

void TestSchool::Sql(const std::string& statements) const {
  try {
    Do(statements);
  } catch (const RuntimeError& error) {
    Fail(statements, error);
  }
}

std::vector<std::string> TestSchool::Rows(const std::string& select) const {
  std::vector<std::string> rows;
  try {
    for (auto found = Ask(select); !found.Eof(); found.MoveNext()) {
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
