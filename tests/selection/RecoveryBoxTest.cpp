#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

const std::string kAgain = kSection + "\n";
const std::string kOrdinaryAgain = Evaluation(1) + "\n";
const std::string kFirstFinalThen = Evaluation(4) + "\n";
constexpr const char* kRecoveriesAndFollowUp =
    "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
    "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321";

/// When "Recuperación" shows: a rule of each dialog's own.
class RecoveryBoxTest : public EachDialogTest {
 protected:
  RecoveryBoxTest() { school.Sql(kRecoveriesAndFollowUp); }

  /// With everything chosen in an ordinary evaluation, and what follows.
  [[nodiscard]] ScriptResult Chosen(const std::string& commands = {}) const {
    return PlayIn(1, commands + "ver");
  }
  [[nodiscard]] bool Shown(const ScriptResult& result) const {
    return FormView(result).Visible("chkRecuperacion");
  }
  /// Only the section dialog by student shows it.
  [[nodiscard]] bool Shows() const { return dialog_.node == kSectionByStudent.node; }
  [[nodiscard]] static bool AskedForFollowUp(const Lines& lines) {
    return ::testing::Value(Statements(lines), Contains(Sql(kFollowUp, {321})));
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, RecoveryBoxTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(RecoveryBoxTest, ShowsOnlyInTheSectionDialogByStudent) {
  const auto result = Chosen(kAgain);
  EXPECT_EQ(Shown(result), Shows()) << result.Text();
  EXPECT_EQ(FormView(result).Value("chkRecuperacion"), 0);
  EXPECT_EQ(AskedForFollowUp(result.After(kSection)), dialog_.BySection());
}

TEST_P(RecoveryBoxTest, ChoosingTheEvaluationLeavesItAsItIs) {
  EXPECT_FALSE(Shown(Chosen()));
  EXPECT_EQ(Shown(Chosen(kAgain + Evaluation(2) + "\n")), Shows());
}

TEST_P(RecoveryBoxTest, AFinalEvaluationHidesIt) {
  EXPECT_FALSE(Shown(Chosen(kAgain + kFirstFinalThen)));
  EXPECT_FALSE(Shown(Chosen(kAgain + kFirstFinalThen + kAgain)));
  // Only the section, chosen with an ordinary evaluation, brings it back.
  EXPECT_FALSE(Shown(Chosen(kAgain + kFirstFinalThen + kOrdinaryAgain)));
  EXPECT_EQ(Shown(Chosen(kAgain + kFirstFinalThen + kOrdinaryAgain + kAgain)), Shows());
}

TEST_P(RecoveryBoxTest, AMarkingSystemWithoutRecoveriesHidesItUnasked) {
  school.Sql("UPDATE SistemaCalificacion SET Recuperaciones=0");
  const auto result = Chosen(kAgain);
  EXPECT_FALSE(Shown(result));
  EXPECT_FALSE(AskedForFollowUp(result.lines));
}

TEST_P(RecoveryBoxTest, ASectionWithoutFollowUpHidesIt) {
  for (const std::string change : {"UPDATE Seccion SET Seguimiento=0 WHERE IDSeccion=321",
                                   "UPDATE Seccion SET Seguimiento=NULL WHERE IDSeccion=321",
                                   "DELETE FROM Seccion WHERE IDSeccion=321"})
    EXPECT_FALSE(Shown(Chosen(kAgain + kOrdinaryAgain + "sql \"" + change + "\"\n" + kAgain)))
        << change;
}

TEST_P(RecoveryBoxTest, PromotionNeverShows) {
  for (const auto evaluation : {1, 4, 5})
    EXPECT_FALSE(FormView(PlayInSection(Evaluation(evaluation) + "\nver")).Visible("chkTodosProm"));
}

/// A check that the user has set: each later choice of section or evaluation takes it back.
TEST(RecoveryBoxCheckedTest, IsClearedByEveryChoice) {
  const PendingSchool school;
  school.Sql(kRecoveriesAndFollowUp);
  const std::string check = "marcar chkRecuperacion 1\n";
  const auto value = [&](const std::string& commands) {
    const auto all = Choose(kSectionByStudent, 1) + kAgain + check + commands + "ver";
    return FormView(Play(school, kSectionByStudent, all)).Value("chkRecuperacion");
  };
  EXPECT_EQ(value(""), 1);
  EXPECT_EQ(value(kOrdinaryAgain), 0);
  EXPECT_EQ(value(kOrdinaryAgain + check + kAgain), 0);
  EXPECT_EQ(value(kFirstFinalThen), 0);
}

}  // namespace
}  // namespace quorvane::test
