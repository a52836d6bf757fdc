#pragma once

#include <gtest/gtest.h>
#include <string>

#include "tests/salida/Play.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// The small school with two pending subjects: one in section 321 that is graded in an ordinary and
/// in the final evaluation, and one in 331 that is locked by what a form which died has left.
class SessionTest : public testing::TestWithParam<Session> {
 protected:
  SessionTest();

  /// Plays the test's session on the school as it was at first.
  Played PlayAfresh(const Moment& moment = {});
  /// Holds that no form has left anything, and that nothing was written but what an undisturbed
  /// session writes first, and then what gives back what the forms hold.
  void ExpectInOrder(const Played& played, const Played& undisturbed) const;

  SmallSchool school_;

 private:
  TempFolder folder_;
  std::string atFirst_ = folder_ / "escuela.sqlite";
};

}  // namespace quorvane::test
