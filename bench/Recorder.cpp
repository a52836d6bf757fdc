#include "bench/Recorder.h"

#include <utility>

namespace quorvane::bench {

void Recorder::Record() {
  recorded_.clear();
  recording_ = true;
}

std::vector<RecordedStatement> Recorder::Recorded() {
  recording_ = false;
  return std::exchange(recorded_, {});
}

void Recorder::TimeNext(std::size_t statements) {
  timed_ = statements;
  taken_ = {};
}

void Recorder::Executed(const std::string& statement, std::size_t rows, const Watch& watch) {
  if (timed_ > 0) {
    --timed_;
    const auto passed = watch.Passed();
    taken_.processor += passed.processor;
    taken_.wall += passed.wall;
  }
  if (recording_) recorded_.push_back({statement, rows});
}

}  // namespace quorvane::bench
