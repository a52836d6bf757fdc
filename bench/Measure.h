#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace quorvane::bench {

/// Seconds since the construction.
class Watch {
 public:
  [[nodiscard]] double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// One line of the table: what was done, by the module and by the plain replay of its statements.
struct Row {
  std::string what;
  int students = 0;
  std::size_t statements = 0;
  double module = 0;  ///< seconds
  double plain = 0;   ///< seconds; 0 when there is nothing to compare with
  double limit = 0;   ///< most that module/plain may be; 0 for none
};

/// The middle of several runs' results.
double Median(std::vector<double> results);

/// The table, as Markdown, on standard output. False when a row is over its limit.
bool Print(const std::vector<Row>& rows);

/// The most memory that this process has had, in MiB.
double PeakMemory();

}  // namespace quorvane::bench
