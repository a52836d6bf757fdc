#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <utility>

namespace quorvane::test {

/// The last things that happened on the walk, to tell when it ends badly.
class History {
 public:
  /// Is handed each line as well, and those of `Transcribe`; a line may hold several.
  std::function<void(const std::string& line)> Transcript;

  /// For the transcript alone.
  void Transcribe(const std::string& line) const {
    if (Transcript) Transcript(line);
  }

  void Add(std::string line) {
    Transcribe(line);
    Note(std::move(line));
  }

  /// What each engine puts in its own words.
  void Note(std::string line) {
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
