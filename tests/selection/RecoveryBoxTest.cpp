#include "tests/selection/StepOne.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

const std::string kSection = "elegir cboSecciones =321";

/// When "Recuperación" shows: a rule of each dialog's own.
class RecoveryBoxTest : public EachDialogTest {
 protected:
  RecoveryBoxTest() {
    school.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321");
  }

  /// With everything chosen in an ordinary evaluation, and what follows.
  [[nodiscard]] ScriptResult Chosen(const std::string& commands = {}) const {
    return PlayIn(1, commands + "ver");
  }
  [[nodiscard]] bool Shown(const ScriptResult& result) const {
    return FormView(result).Visible("chkRecuperacion");
  }
  /// Only the section dialog by student shows it.
  [[nodiscard]] bool Shows() const { return dialog_.node == kSectionByStudent.node; }
  [[nodiscard]] bool AsksForFollowUp() const { return dialog_.BySection(); }
};

INSTANTIATE_TEST_SUITE_P(StepOne, RecoveryBoxTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(RecoveryBoxTest, ShowsOnlyInTheSectionDialogByStudent) {
  const auto result = Chosen(kSection + "\n");
  EXPECT_EQ(Shown(result), Shows()) << result.Text();
  EXPECT_EQ(FormView(result).Value("chkRecuperacion"), 0);
  const auto statements = Statements(result.After(kSection));
  if (AsksForFollowUp()) {
    EXPECT_THAT(statements, Contains(Sql(expected::kFollowUp, {321})));
  } else {
    EXPECT_THAT(statements, Not(Contains(Sql(expected::kFollowUp, {321}))));
  }
}

TEST_P(RecoveryBoxTest, ChoosingTheEvaluationLeavesItAsItIs) {
  EXPECT_FALSE(Shown(Chosen()));
  EXPECT_EQ(Shown(Chosen(kSection + "\nelegir cboEvaluaciones =2\n")), Shows());
}

TEST_P(RecoveryBoxTest, AFinalEvaluationHidesIt) {
  EXPECT_FALSE(Shown(Chosen(kSection + "\nelegir cboEvaluaciones =4\n")));
  EXPECT_FALSE(Shown(Chosen(kSection + "\nelegir cboEvaluaciones =4\n" + kSection + "\n")));
  // Only the section, chosen with an ordinary evaluation, brings it back.
  EXPECT_EQ(
      Shown(Chosen(kSection + "\nelegir cboEvaluaciones =4\n" + "elegir cboEvaluaciones =1\n")),
      false);
  EXPECT_EQ(Shown(Chosen(kSection + "\nelegir cboEvaluaciones =4\n" +
                         "elegir cboEvaluaciones =1\n" + kSection + "\n")),
            Shows());
}

TEST_P(RecoveryBoxTest, AMarkingSystemWithoutRecoveriesHidesItUnasked) {
  school.Sql("UPDATE SistemaCalificacion SET Recuperaciones=0");
  const auto result = Chosen(kSection + "\n");
  EXPECT_FALSE(Shown(result));
  EXPECT_THAT(Statements(result.lines), Not(Contains(Sql(expected::kFollowUp, {321}))));
}

TEST_P(RecoveryBoxTest, ASectionWithoutFollowUpHidesIt) {
  const auto without = [this](const std::string& change) {
    return Chosen(kSection + "\nelegir cboEvaluaciones =1\nsql \"" + change + "\"\n" + kSection +
                  "\n");
  };
  EXPECT_FALSE(Shown(without("UPDATE Seccion SET Seguimiento=0 WHERE IDSeccion=321")));
  EXPECT_FALSE(Shown(without("UPDATE Seccion SET Seguimiento=NULL WHERE IDSeccion=321")));
}

TEST_P(RecoveryBoxTest, ASectionThatHasGoneHidesIt) {
  const auto result = Chosen(kSection +
                             "\nelegir cboEvaluaciones =1\nsql \"DELETE FROM Seccion WHERE "
                             "IDSeccion=321\"\n" +
                             kSection + "\n");
  EXPECT_FALSE(Shown(result));
}

TEST_P(RecoveryBoxTest, PromotionNeverShows) {
  for (const auto evaluation : {1, 4, 5})
    EXPECT_FALSE(FormView(Play("elegir cboCursos =32\n" + kSection +
                               "\nelegir cboEvaluaciones =" + std::to_string(evaluation) + "\nver"))
                     .Visible("chkTodosProm"));
}

/// A check that the user has set: each later choice of section or evaluation takes it back.
TEST(RecoveryBoxCheckedTest, IsClearedByEveryChoice) {
  const PendingSchool school;
  school.Sql(
      "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
      "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321");
  const auto value = [&school](const std::string& commands) {
    return FormView(Play(school, kSectionByStudent,
                         Choose(kSectionByStudent, 1) + kSection + "\nmarcar chkRecuperacion 1\n" +
                             commands + "ver"))
        .Value("chkRecuperacion");
  };
  EXPECT_EQ(value(""), 1);
  EXPECT_EQ(value("elegir cboEvaluaciones =1\n"), 0);
  EXPECT_EQ(value("elegir cboEvaluaciones =1\nmarcar chkRecuperacion 1\n" + kSection + "\n"), 0);
  EXPECT_EQ(value("elegir cboEvaluaciones =4\n"), 0);
}

}  // namespace
}  // namespace quorvane::test
