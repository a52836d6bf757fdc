#pragma once

#include <cstdint>
#include <ostream>
#include <vector>

#include "tests/ventana/KeyPass.h"
#include "tests/walk/WalkOptions.h"

namespace quorvane::test {

/// The same keys on every grade form, slowly and as fast as they can come, on an idle machine and
/// on a busy one: the end has to be the same.
class KeyRuns {
 public:
  explicit KeyRuns(const WalkOptions& options) : options_(options) {}

  /// `Violation`, with the fewest keys that still show it, when speed made a difference.
  void Run(std::ostream& out);

 private:
  using Keys = std::vector<const KeyPress*>;

  void Compare(const GradeScreen& which, const Keys& keys, std::ostream& out) const;
  /// Leaves keys out as long as the end still hangs on the speed.
  static Keys Fewest(const GradeScreen& which, Keys keys);

  WalkOptions options_;
};

}  // namespace quorvane::test
