#include "bench/RecordingConnection.h"

#include <utility>

namespace quorvane::bench {

void RecordingConnection::Record() {
  recorded_.clear();
  recording_ = true;
}

std::vector<RecordedStatement> RecordingConnection::Recorded() {
  recording_ = false;
  return std::exchange(recorded_, {});
}

Recordset RecordingConnection::Run(const std::string& statement) {
  auto rows = SqliteConnection::Run(statement);
  if (recording_) recorded_.push_back({statement, rows.IsOpen() ? rows.RecordCount() : 0});
  return rows;
}

}  // namespace quorvane::bench
