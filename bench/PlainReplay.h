#pragma once

#include <string>
#include <vector>

namespace quorvane::bench {

/// What the same statements cost without this project: each prepared, stepped through and
/// finalized afresh on SQLite's C library.
class PlainReplay {
 public:
  /// Seconds for all of them on that file, durable at the end as the module's own are.
  /// Ends the program when one fails.
  static double Run(const std::string& file, const std::vector<std::string>& statements);
};

}  // namespace quorvane::bench
