#pragma once

#include <memory>
#include <string>
#include <vector>

namespace quorvane {
class Recordset;
}
namespace quorvane::sqlite {
class SqliteConnection;
}

namespace quorvane::test {

/// A school database of its own, with all tables and no rows, that goes with the object: a file, or
/// on a server a database (`OnServer`).
class TestSchool {
 public:
  TestSchool();
  ~TestSchool();
  TestSchool(TestSchool&&) = delete;

  /// The file, or the name of the database.
  [[nodiscard]] const std::string& Path() const noexcept { return path_; }

  /// Executes statements parted by semicolons, untraced; a failure ends the test program.
  void Sql(const std::string& statements) const;

  /// The rows of a SELECT, untraced, each as `1|text|NULL`.
  [[nodiscard]] std::vector<std::string> Rows(const std::string& select) const;

 private:
  /// As the school's own connection, which stays open beside those of the sessions: to open one
  /// takes longer than what most tests ask of it.
  void Do(const std::string& statements) const;
  [[nodiscard]] Recordset Ask(const std::string& select) const;
  [[nodiscard]] sqlite::SqliteConnection& File() const;

  std::string path_;
  mutable std::unique_ptr<sqlite::SqliteConnection> file_;
  mutable bool keepsOpen_ = true;
};

}  // namespace quorvane::test
