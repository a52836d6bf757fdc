#pragma once

#include <chrono>
#include <streambuf>
#include <string>
#include <vector>

namespace quorvane {

/// A script that is read line by line as it is played, so that the time between two lines is what
/// the first of them has taken.
class TimedLines : public std::streambuf {
 public:
  explicit TimedLines(std::vector<std::string> lines) : lines_(std::move(lines)) {}

  /// The seconds that all lines that read so took together.
  [[nodiscard]] double Seconds(const std::string& line) const {
    std::chrono::duration<double> sum{};
    for (std::size_t i = 0; i + 1 < begun_.size() && i < lines_.size(); ++i)
      if (lines_[i] == line) sum += begun_[i + 1] - begun_[i];
    return sum.count();
  }

 protected:
  int_type underflow() override {
    const auto next = begun_.size();
    begun_.push_back(std::chrono::steady_clock::now());
    if (next >= lines_.size()) return traits_type::eof();
    given_ = lines_[next] + '\n';
    setg(given_.data(), given_.data(), given_.data() + given_.size());
    return traits_type::to_int_type(given_.front());
  }

 private:
  std::vector<std::string> lines_;
  std::vector<std::chrono::steady_clock::time_point> begun_;
  std::string given_;
};

}  // namespace quorvane
