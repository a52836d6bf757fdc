#pragma once

#include <string>
#include <vector>

#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// What something took, in seconds. The processor's time is this process's, the system's on its
/// behalf included: what other programs take meanwhile, and the disk's waiting, don't count.
struct Time {
  double processor = 0;
  double wall = 0;
};

/// Measures from its construction.
class Watch {
 public:
  [[nodiscard]] Time Passed() const;

 private:
  static Time Now();

  Time start_ = Now();
};

/// What a quarter of several runs came under, of each clock by itself: what other programs do to
/// the processor's caches only ever adds.
Time Quartile(const std::vector<Time>& results);
double Quartile(std::vector<double> results);

/// One thing that a user does, done by the module, and its statements replayed by each of the
/// libraries, in the order of `Libraries`.
struct Row {
  std::string what;
  int students = 0;
  std::vector<RecordedStatement> statements{};
  Time module{};
  std::vector<Time> libraries{};  ///< none when there are no statements to replay
  double limit = 0;               ///< most that the module may take of the first one's; 0 for none
  bool opening = false;           ///< must not grow with the school
};

/// The most memory that this process has had, in MiB.
double PeakMemory();

}  // namespace quorvane::bench
