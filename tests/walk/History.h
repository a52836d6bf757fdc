#pragma once

#include <cstddef>
#include <deque>
#include <ostream>
#include <string>
#include <utility>

namespace quorvane::test {

/// The last things that happened on the walk, to tell when it ends badly.
class History {
 public:
  void Add(std::string line) {
    if (lines_.size() == kKept) lines_.pop_front();
    lines_.push_back(std::move(line));
  }

  void Print(std::ostream& out) const {
    for (const auto& line : lines_) out << "  " << line << '\n';
  }

 private:
  static constexpr std::size_t kKept = 60;

  std::deque<std::string> lines_;
};

}  // namespace quorvane::test
