#pragma once

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolFile.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// The sample school in a file of its own, open, that goes with the object.
class OpenSchool {
 public:
  OpenSchool() {
    MakeSchoolFile(path_, [](Connection& school) { DemoSchool(school).Build(); });
    connection_.Open();
    // A test's school need not survive the machine.
    Sql("PRAGMA synchronous=OFF");
  }

  [[nodiscard]] Connection& Db() noexcept { return connection_; }
  [[nodiscard]] const std::string& Path() const noexcept { return path_; }

  /// Executes statements parted by semicolons, unobserved.
  void Sql(const std::string& statements) { connection_.ExecuteScript(statements); }

  /// The first column of the first row.
  [[nodiscard]] int Number(const std::string& select) {
    return connection_.Execute(select).Fields(0).Long();
  }
  [[nodiscard]] int Count(const std::string& from) {
    return Number("SELECT COUNT(*) FROM " + from);
  }

  [[nodiscard]] std::vector<std::string> FirstColumn(const std::string& select) {
    std::vector<std::string> texts;
    for (auto rows = connection_.Execute(select); !rows.Eof(); rows.MoveNext())
      texts.push_back(rows.Fields(0).Text());
    return texts;
  }

 private:
  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
  sqlite::SqliteConnection connection_{path_, ""};
};

}  // namespace quorvane::test
