#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// Keeps what is executed on the connections that report to it, between `Record` and `Recorded`.
class Recorder {
 public:
  /// From now on the statements are kept; the time that this takes is in what is measured.
  void Record();
  /// The statements since `Record`, which are kept no more.
  std::vector<RecordedStatement> Recorded();

  /// What the next so many statements take is added up, apart from all that is round them.
  void TimeNext(std::size_t statements);
  [[nodiscard]] const Time& Taken() const noexcept { return taken_; }

  void Executed(const std::string& statement, std::size_t rows, const Watch& watch);
  /// Whether it is to be told of the next statement.
  [[nodiscard]] bool Attends() const noexcept { return recording_ || timed_ > 0; }

 private:
  bool recording_ = false;
  std::size_t timed_ = 0;
  Time taken_;
  std::vector<RecordedStatement> recorded_;
};

}  // namespace quorvane::bench
