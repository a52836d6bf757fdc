#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/salida/SessionTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

constexpr std::array kSignals{SIGHUP, SIGINT, SIGTERM};
constexpr int kLeftBadly = 4;  // the program's exit status

/// How many of the signals each statement sees: one, or all where somebody has the time for it.
std::size_t SignalsForAStatement() {
  return std::getenv("QUORVANE_TODAS_LAS_SENALES") == nullptr ? 1 : kSignals.size();
}

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
        RecordProperty("moments", number - 1);
        RecordProperty("ends", static_cast<int>(turn));
        return;
      }
      ExpectEnd(played, signal);
      ExpectInOrder(played, undisturbed);
      if (HasFailure()) return;
    }
  }

 private:
  /// By the signal, without a word; but a statement that is refused when the program has heard of
  /// the signal already finds no dialog any more to be told in.
  static void ExpectEnd(const Played& played, int signal) {
    const auto& refusal = GetParam().refusal;
    const auto told = !refusal.empty() && played.errors == refusal;
    EXPECT_EQ(played.signal, told ? 0 : signal);
    EXPECT_EQ(played.status, told ? kLeftBadly : 0);
    EXPECT_EQ(played.errors, told ? refusal : "");
  }
};

TEST_P(SignalsTest, EndTheProgramInOrderAfterTheStatementThatRuns) {
  EndAtEach(Moment::Kind::Statement, SignalsForAStatement());
}

TEST_P(SignalsTest, EndTheProgramInOrderWhileTheUserRests) {
  EndAtEach(Moment::Kind::Rest, kSignals.size());
}

INSTANTIATE_TEST_SUITE_P(All, SignalsTest, testing::ValuesIn(Sessions()),
                         [](const auto& session) { return session.param.name; });

/// The grades by student, in a school that refuses to write something.
class LeftBadlyTest : public SessionTest {
 protected:
  [[nodiscard]] int Held() const {
    return school_.Numero(
        "SELECT (SELECT COUNT(*) FROM PublicacionPte) + (SELECT COUNT(*) FROM BloqueoPte WHERE "
        "CodMatDet=3111)");
  }
};

TEST_P(LeftBadlyTest, WhatCanNotBeGivenBackIsToldAndTheProgramEndsAllTheSame) {
  constexpr auto kStepTwo = 2;  // the user's rest before the grades
  school_.Sql(
      "CREATE TRIGGER fijo BEFORE DELETE ON PublicacionPte "
      "BEGIN SELECT RAISE(ABORT,'no se puede borrar'); END");
  const auto played = Play(GetParam(), school_.Path(), {Moment::Kind::Rest, kStepTwo, SIGTERM});
  EXPECT_EQ(played.signal, 0);
  EXPECT_EQ(played.status, kLeftBadly);
  EXPECT_THAT(played.errors, HasSubstr("zendria: al salir: Error -2147467259: "));
  EXPECT_THAT(played.errors, HasSubstr("no se puede borrar"));
  EXPECT_EQ(Held(), 2);
}

TEST_P(LeftBadlyTest, ASaveThatFailsThenLosesNoGradeAndKeepsNoLock) {
  school_.Sql(
      "CREATE TRIGGER lleno BEFORE UPDATE ON EvaluacionPte WHEN NEW.CodNota=107 "
      "BEGIN SELECT RAISE(ABORT,'disco lleno'); END");
  const auto played = Play(GetParam(), school_.Path(), {Moment::Kind::Save, 1, SIGTERM});
  EXPECT_EQ(played.signal, 0);
  EXPECT_EQ(played.status, kLeftBadly);
  EXPECT_THAT(played.errors, HasSubstr("disco lleno"));
  EXPECT_THAT(played.errors, HasSubstr("zendria: notas sin guardar: "));
  EXPECT_THAT(played.rescued, HasSubstr("disco lleno"));
  EXPECT_THAT(played.rescued, HasSubstr("\t7"));
  EXPECT_EQ(Held(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, LeftBadlyTest, testing::Values(Sessions().front()),
                         [](const auto& session) { return session.param.name; });

}  // namespace
}  // namespace quorvane::test
