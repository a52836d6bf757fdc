#pragma once

#include <ctime>
#include <streambuf>
#include <string>
#include <vector>

namespace quorvane {

/// A script that is read line by line as it is played, so that the time between two lines is what
/// the first of them has taken. By the clock on the wall, or by that of this program's work, which
/// doesn't go on while the machine is at somebody else's.
class TimedLines : public std::streambuf {
 public:
  TimedLines(std::vector<std::string> lines, clockid_t clock)
      : lines_(std::move(lines)), clock_(clock) {}

  /// The seconds that all lines that read so took together.
  [[nodiscard]] double Seconds(const std::string& line) const {
    double sum = 0;
    for (std::size_t i = 0; i + 1 < begun_.size() && i < lines_.size(); ++i)
      if (lines_[i] == line) sum += begun_[i + 1] - begun_[i];
    return sum;
  }

 protected:
  int_type underflow() override {
    const auto next = begun_.size();
    timespec now{};
    clock_gettime(clock_, &now);
    begun_.push_back(static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9);
    if (next >= lines_.size()) return traits_type::eof();
    given_ = lines_[next] + '\n';
    setg(given_.data(), given_.data(), given_.data() + given_.size());
    return traits_type::to_int_type(given_.front());
  }

 private:
  std::vector<std::string> lines_;
  clockid_t clock_;
  std::vector<double> begun_;
  std::string given_;
};

}  // namespace quorvane
