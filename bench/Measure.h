#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quorvane::bench {

/// The processor's seconds that this process has taken since the construction, the system's on its
/// behalf included: what other programs take meanwhile, and the disk's waiting, don't count.
class Watch {
 public:
  [[nodiscard]] double Seconds() const { return Now() - start_; }

 private:
  static double Now();

  double start_ = Now();
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
