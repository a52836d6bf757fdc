#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace quorvane {

/// A connection under another name, as the module's dialogs are handed it: in the trace stand their
/// statements alone, and not the transaction round them.
class PlayedConnection : public Connection {
 public:
  /// `actual` is open and outlives it.
  PlayedConnection(Connection& actual, const std::string& name)
      : Connection(name), actual_(actual) {}

  /// Error 0x80004005 when it has been lost: a new one would stand outside the transaction.
  void Open() override;
  void Close() override {}
  [[nodiscard]] bool IsOpen() const override { return actual_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return actual_.DataSource(); }

 protected:
  Recordset Run(const std::string& statement) override { return actual_.Execute(statement); }

 private:
  Connection& actual_;
};

}  // namespace quorvane
