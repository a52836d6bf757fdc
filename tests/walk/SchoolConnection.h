#pragma once

#include <string>
#include <utility>

#include "adapters/sqltext/RowOrder.h"
#include "platform/data/Connection.h"

namespace quorvane::test {

/// One of the connections that the module is handed. All of them reach one school, which may live
/// in memory and would be gone if one of them really closed it.
class SchoolConnection : public Connection {
 public:
  /// `school` is open and outlives the connection.
  SchoolConnection(std::string name, Connection& school)
      : Connection(std::move(name)), school_(school) {}

  /// Gives the rows that a statement leaves unordered as a server does.
  void OrderRows() noexcept { ordered_ = true; }

  void Open() override { open_ = true; }
  void Close() override { open_ = false; }
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] std::string DataSource() const override { return "escuela"; }

 protected:
  Recordset Run(const std::string& statement) override {
    return school_.Execute(ordered_ ? sqltext::OrderAsInAFile(statement) : statement);
  }

 private:
  Connection& school_;
  bool ordered_ = false;
  bool open_ = true;
};

}  // namespace quorvane::test
