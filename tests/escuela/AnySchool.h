#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/Transaction.h"
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
  void Sql(const std::string& statement) const { db_->Execute(statement); }
  [[nodiscard]] int Number(const std::string& select) const {
    return db_->Execute(select).Fields(0).Long();
  }
  [[nodiscard]] std::vector<std::string> Rows(const std::string& select) const {
    return school_.Rows(select);
  }

 private:
  TestSchool school_;
  std::unique_ptr<Connection> db_ = Address().Open("");
};

}  // namespace quorvane::test
