#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/data/StatementTrace.h"

namespace quorvane::test {

/// A database that keeps what reached it. A SELECT gives one row, "texto" and Null; a statement
/// that begins with "malo" is refused; any other gives no rows.
class KeepingConnection : public Connection {
 public:
  using Connection::Connection;

  void Open() override { open = true; }
  void Close() override { open = false; }
  [[nodiscard]] bool IsOpen() const override { return open; }
  [[nodiscard]] std::string DataSource() const override { return "maquina"; }

  bool open = true;
  std::vector<std::string> reached;

 protected:
  Recordset Run(const std::string& statement) override {
    reached.push_back(statement);
    if (statement.starts_with("malo"))
      throw RuntimeError(ErrorNumber::StatementFailed, "rechazada");
    if (!statement.starts_with("SELECT")) return {};
    return {std::make_shared<FieldNames>(FieldNames{"uno", "dos"}), {Value("texto"), Value()}};
  }

 private:
  StatementTrace::Silence silence_;  // what reaches it is none of the module's
};

}  // namespace quorvane::test
