#pragma once

#include <string>
#include <vector>

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
  std::string path_;
};

}  // namespace quorvane::test
