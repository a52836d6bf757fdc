#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"

namespace quorvane::test {

/// What a session's connections have done until the fault.
struct FaultDiary {
  std::function<void(const std::string& statement)> before;  ///< told of each before it begins
  std::vector<std::string> written;                          ///< what wrote and came back well
  std::optional<std::string> inFlight;  ///< the one that writes and didn't come back
  std::int64_t returned = 0;
  std::string error;                           ///< the text that told of the loss; empty until then
  std::chrono::steady_clock::duration took{};  ///< from that statement to its error
};

/// A session's connection, which notes in the diary what comes of its statements.
class FaultConnection : public Connection {
 public:
  /// The diary outlives it.
  FaultConnection(const std::string& text, std::string name, FaultDiary& diary);

  void Open() override;
  void Close() override { engine_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return engine_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return engine_.DataSource(); }

  /// The server's process for it, as of the last opening; 0 before.
  [[nodiscard]] int Process() const noexcept { return process_; }

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  odbc::OdbcConnection engine_;
  FaultDiary& diary_;
  int process_ = 0;
};

}  // namespace quorvane::test
