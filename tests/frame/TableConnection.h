#pragma once

#include <string>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"

namespace quorvane::test {

/// A database that answers every statement with the same rows, or refuses them all.
class TableConnection : public Connection {
 public:
  TableConnection() : Connection("") {}

  void Open() override {}
  void Close() override {}
  [[nodiscard]] bool IsOpen() const override { return true; }
  [[nodiscard]] std::string DataSource() const override { return {}; }

  std::vector<Value> column;  ///< the one column of its rows
  bool refuses = false;
  std::vector<std::string> statements;

 protected:
  Recordset Run(const std::string& statement) override {
    statements.push_back(statement);
    if (refuses) throw RuntimeError(ErrorNumber::StatementFailed, "rechazada");
    return {std::make_shared<FieldNames>(FieldNames{"MAX"}), column};
  }
};

}  // namespace quorvane::test
