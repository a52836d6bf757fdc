#pragma once

#include <string>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"

namespace quorvane::test {

/// One of the connections that the module is handed. All of them reach one school, which lives in
/// memory and would be gone if one of them really closed it.
class SchoolConnection : public Connection {
 public:
  /// `school` is open and outlives the connection.
  SchoolConnection(std::string name, sqlite::SqliteConnection& school)
      : Connection(std::move(name)), school_(school) {}

  void Open() override { open_ = true; }
  void Close() override { open_ = false; }
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] std::string DataSource() const override { return "escuela"; }

 protected:
  Recordset Run(const std::string& statement) override { return school_.Execute(statement); }

 private:
  sqlite::SqliteConnection& school_;
  bool open_ = true;
};

}  // namespace quorvane::test
