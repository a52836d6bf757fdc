#pragma once

#include <memory>
#include <string>

#include "platform/data/Connection.h"

namespace quorvane {

/// A connection to a server that is made by its first statement: until then nothing is held there.
/// Counts as open from its making on. What opening fails with, the statement does.
class StandbyConnection : public Connection {
 public:
  /// `actual` is closed and nameless; `name` as in `Connection`.
  StandbyConnection(std::unique_ptr<Connection> actual, std::string name);

  void Open() override;                        ///< no effect before the first statement
  void Close() override { actual_->Close(); }  ///< until the next statement
  [[nodiscard]] bool IsOpen() const override { return true; }
  [[nodiscard]] std::string DataSource() const override { return actual_->DataSource(); }

  /// What it works through; closed before the first statement.
  [[nodiscard]] Connection& Actual() noexcept { return *actual_; }
  [[nodiscard]] const Connection& Actual() const noexcept { return *actual_; }

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  std::unique_ptr<Connection> actual_;
};

}  // namespace quorvane
