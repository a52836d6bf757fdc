#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/Transaction.h"
#include "apps/escuela/history/GradeHistory.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// The sample school, in a file or on the server that the tests run beside.
class AnySchool {
 public:
  AnySchool() {
    Transaction transaction(*db_);
    DemoSchool(*db_).Build();
    transaction.Keep();
  }

  [[nodiscard]] SchoolAddress Address() const {
    return OnServer() ? SchoolAddress::Odbc(OwnerString(school_.Path()))
                      : SchoolAddress::File(school_.Path());
  }
  /// As a program names it.
  [[nodiscard]] std::string Argument() const {
    return OnServer() ? "--odbc '" + OwnerString(school_.Path()) + "'" : school_.Path();
  }
  [[nodiscard]] const std::string& Path() const noexcept { return school_.Path(); }
  [[nodiscard]] const TestSchool& School() const noexcept { return school_; }
  [[nodiscard]] Connection& Db() const noexcept { return *db_; }
  /// Executes statements parted by semicolons.
  void Sql(const std::string& statements) const {
    if (auto* const file = dynamic_cast<sqlite::SqliteConnection*>(db_.get()); file != nullptr)
      file->ExecuteScript(statements);
    else
      db_->Execute(statements);
  }
  [[nodiscard]] int Number(const std::string& select) const {
    return db_->Execute(select).Fields(0).Long();
  }
  [[nodiscard]] int Count(const std::string& from) const {
    return Number("SELECT COUNT(*) FROM " + from);
  }
  [[nodiscard]] std::vector<std::string> Rows(const std::string& select) const {
    return school_.Rows(select);
  }

  /// Nobody has a form open.
  void Rest() const { Sql("DELETE FROM BloqueoPte; DELETE FROM PublicacionPte"); }
  /// On a server the next test takes the same database.
  void ForgetHistory() const {
    GradeHistory(*db_).Deactivate();
    Sql("DROP TABLE IF EXISTS HistorialNotas");
  }

 private:
  TestSchool school_;
  std::unique_ptr<Connection> db_ = Address().Open("");
};

}  // namespace quorvane::test
