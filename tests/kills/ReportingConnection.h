#pragma once

#include <string>
#include <unistd.h>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/RuntimeError.h"
#include "tests/kills/Report.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {

/// A victim's connection: tells of each statement before and after it, at once.
class ReportingConnection : public Connection {
 public:
  /// `in` is the pipe's. With a fault, now and then a statement is told and not executed.
  ReportingConnection(const std::string& path, std::string name, int in, bool fault)
      : Connection(std::move(name)), engine_(path, ""), in_(in), fault_(fault) {}

  void Open() override { engine_.Open(); }
  void Close() override { engine_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return engine_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return engine_.DataSource(); }

 protected:
  Recordset Run(const std::string& statement) override {
    constexpr int kEachFault = 7;
    const auto reads = Reads(statement);
    Tell(reads ? std::string(1, kBeginsToRead) : kBeginsToWrite + statement);
    const auto swallowed = fault_ && !reads && ++writes_ % kEachFault == 0;
    try {
      auto rows = swallowed ? Recordset() : engine_.Execute(statement);
      Tell(std::string(1, kReturned));
      return rows;
    } catch (const RuntimeError&) {
      Tell(std::string(1, kFailed));
      throw;
    }
  }

 private:
  void Tell(std::string line) const {
    line += '\n';
    // A pipe takes a line of this length whole or not at all.
    if (write(in_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) _exit(1);
  }

  sqlite::SqliteConnection engine_;
  int in_;
  bool fault_;
  int writes_ = 0;
};

}  // namespace quorvane::test
