#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/guion/host/HostOptions.h"
#include "adapters/guion/host/ModuleEntry.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/data/StatementTrace.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {

/// A database that keeps what reached it. A SELECT gives one row, "texto" and Null; a statement
/// that begins with "malo" is refused; any other gives no rows.
class FakeConnection : public Connection {
 public:
  using Connection::Connection;

  void Open() override {}
  void Close() override {}
  [[nodiscard]] bool IsOpen() const override { return true; }
  [[nodiscard]] std::string DataSource() const override { return "maquina"; }

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

/// Plays scripts against forms of the tests' own: node 1 opens `frmPrueba`, node 2 `frmUno`, all
/// others nothing.
class GuionTest : public testing::Test {
 protected:
  GuionTest();

  /// All lines but the echoes; `status` and `session` are of the last play.
  std::vector<std::string> Play(const std::string& script);
  /// Of a script in `frmPrueba`: what follows its opening. The script leaves it open.
  std::vector<std::string> PlayIn(const std::string& script);

  int status = -1;
  std::shared_ptr<const SessionObject> session;
  guion::HostOptions options;
  guion::ModuleEntry module;
  FakeConnection centro{"centro"};
  FakeConnection borrado{"borrado"};
  FakeConnection entrada{"entrada"};
  FakeConnection otra{""};
  bool echo = false;
};

using Lines = std::vector<std::string>;

}  // namespace quorvane::test
