#pragma once

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// A connection that keeps what is executed on it, between `Record` and `Recorded`.
class RecordingConnection : public sqlite::SqliteConnection {
 public:
  using SqliteConnection::SqliteConnection;

  /// From now on the statements are kept; the time that this takes is in what is measured.
  void Record();
  /// The statements since `Record`, which are kept no more.
  std::vector<RecordedStatement> Recorded();

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  bool recording_ = false;
  std::vector<RecordedStatement> recorded_;
};

}  // namespace quorvane::bench
