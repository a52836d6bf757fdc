#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"

namespace quorvane::test {

/// A victim's connection: tells of each statement before and after it, at once.
class ReportingConnection : public Connection {
 public:
  /// `in` is the pipe's. With a fault, now and then a statement is told and not executed.
  ReportingConnection(const std::string& path, std::string name, int in, bool fault);

  void Open() override { engine_.Open(); }
  void Close() override { engine_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return engine_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return engine_.DataSource(); }

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  void Tell(std::string line) const;

  sqlite::SqliteConnection engine_;
  int in_;
  bool fault_;
  int writes_ = 0;
};

}  // namespace quorvane::test
