#include <array>
#include <gtest/gtest.h>

#include "tests/salida/SessionTest.h"

namespace quorvane::test {
namespace {

constexpr std::array kSignals{SIGHUP, SIGINT, SIGTERM};

class SignalsTest : public SessionTest {
 protected:
  /// Tells the program to end at each moment of that kind that the session has, by each of so many
  /// signals; with fewer than there are, they take turns.
  void EndAtEach(Moment::Kind kind, std::size_t signals) {
    const auto undisturbed = PlayAfresh();
    ASSERT_EQ(undisturbed.status, 0) << undisturbed.errors;
    ASSERT_EQ(undisturbed.signal, 0);
    ASSERT_EQ(school_.Numero(GetParam().select), GetParam().expected);
    for (std::size_t turn = 0;; ++turn) {
      const auto number = static_cast<int>(turn / signals) + 1;
      const auto signal = kSignals[turn % kSignals.size()];
      const auto played = PlayAfresh({kind, number, signal});
      SCOPED_TRACE("the moment " + std::to_string(number) + ", signal " + std::to_string(signal));
      if (played.signal == 0 && played.writes == undisturbed.writes) {
        EXPECT_GT(number, 1);
        EXPECT_EQ(played.status, 0);
        return;
      }
      EXPECT_EQ(played.signal, signal) << "status " << played.status;
      ExpectInOrder(played, undisturbed);
      if (HasFailure()) return;
    }
  }
};

TEST_P(SignalsTest, EndTheProgramInOrderAfterTheStatementThatRuns) {
  EndAtEach(Moment::Kind::Statement, 1);
}

TEST_P(SignalsTest, EndTheProgramInOrderWhileTheUserRests) {
  EndAtEach(Moment::Kind::Rest, kSignals.size());
}

INSTANTIATE_TEST_SUITE_P(All, SignalsTest, testing::ValuesIn(Sessions()),
                         [](const auto& session) { return session.param.name; });

}  // namespace
}  // namespace quorvane::test
