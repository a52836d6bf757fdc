#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::Not;

const std::string kSection = "elegir cboSecciones =321";

/// When "Recuperación" shows: a rule of each dialog's own.
class RecoveryBox : public ::testing::TestWithParam<Dialog> {
 protected:
  RecoveryBox() {
    school.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321");
  }

  [[nodiscard]] ScriptResult Run(const std::string& commands) const {
    return Play(school, GetParam(), commands + "ver");
  }
  [[nodiscard]] static bool Shown(const ScriptResult& result) {
    return View(result).Visible("chkRecuperacion");
  }
  /// Only the section dialog by student shows it.
  [[nodiscard]] static bool Shows() { return GetParam().node == kSectionByStudent.node; }
  [[nodiscard]] static bool AsksForFollowUp() { return GetParam().BySection(); }

  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(StepOne, RecoveryBox, ::testing::ValuesIn(kDialogs),
                         [](const auto& dialog) { return std::string(dialog.param.form); });

TEST_P(RecoveryBox, ShowsOnlyInTheSectionDialogByStudent) {
  const auto result = Run(Choose(GetParam(), 1) + kSection + "\n");
  EXPECT_EQ(Shown(result), Shows()) << result.Text();
  EXPECT_EQ(View(result).Value("chkRecuperacion"), 0);
  const auto statements = Statements(result.After(kSection));
  if (AsksForFollowUp()) {
    EXPECT_THAT(statements, Contains(Fill(kFollowUp, {321})));
  } else {
    EXPECT_THAT(statements, Not(Contains(Fill(kFollowUp, {321}))));
  }
}

TEST_P(RecoveryBox, ChoosingTheEvaluationLeavesItAsItIs) {
  EXPECT_FALSE(Shown(Run(Choose(GetParam(), 1))));
  EXPECT_EQ(Shown(Run(Choose(GetParam(), 1) + kSection + "\nelegir cboEvaluaciones =2\n")),
            Shows());
}

TEST_P(RecoveryBox, AFinalEvaluationHidesIt) {
  EXPECT_FALSE(Shown(Run(Choose(GetParam(), 1) + kSection + "\nelegir cboEvaluaciones =4\n")));
  EXPECT_FALSE(Shown(
      Run(Choose(GetParam(), 1) + kSection + "\nelegir cboEvaluaciones =4\n" + kSection + "\n")));
  // Only the section, chosen with an ordinary evaluation, brings it back.
  EXPECT_EQ(Shown(Run(Choose(GetParam(), 1) + kSection + "\nelegir cboEvaluaciones =4\n" +
                      "elegir cboEvaluaciones =1\n")),
            false);
  EXPECT_EQ(Shown(Run(Choose(GetParam(), 1) + kSection + "\nelegir cboEvaluaciones =4\n" +
                      "elegir cboEvaluaciones =1\n" + kSection + "\n")),
            Shows());
}

TEST_P(RecoveryBox, AMarkingSystemWithoutRecoveriesHidesItUnasked) {
  school.Sql("UPDATE SistemaCalificacion SET Recuperaciones=0");
  const auto result = Run(Choose(GetParam(), 1) + kSection + "\n");
  EXPECT_FALSE(Shown(result));
  EXPECT_THAT(Statements(result.lines), Not(Contains(Fill(kFollowUp, {321}))));
}

TEST_P(RecoveryBox, ASectionWithoutFollowUpHidesIt) {
  const auto without = [this](const std::string& change) {
    return Run(Choose(GetParam(), 1) + kSection + "\nelegir cboEvaluaciones =1\nsql \"" + change +
               "\"\n" + kSection + "\n");
  };
  EXPECT_FALSE(Shown(without("UPDATE Seccion SET Seguimiento=0 WHERE IDSeccion=321")));
  EXPECT_FALSE(Shown(without("UPDATE Seccion SET Seguimiento=NULL WHERE IDSeccion=321")));
}

TEST_P(RecoveryBox, ASectionThatHasGoneHidesIt) {
  const auto result = Run(Choose(GetParam(), 1) + kSection +
                          "\nelegir cboEvaluaciones =1\nsql \"DELETE FROM Seccion WHERE "
                          "IDSeccion=321\"\n" +
                          kSection + "\n");
  EXPECT_FALSE(Shown(result));
}

TEST_P(RecoveryBox, PromotionNeverShows) {
  for (const auto evaluation : {1, 4, 5})
    EXPECT_FALSE(View(Run("elegir cboCursos =32\n" + kSection +
                          "\nelegir cboEvaluaciones =" + std::to_string(evaluation) + "\n"))
                     .Visible("chkTodosProm"));
}

/// A check that the user has set: each later choice of section or evaluation takes it back.
TEST(RecoveryBoxChecked, IsClearedByEveryChoice) {
  const PendingSchool school;
  school.Sql(
      "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
      "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321");
  const auto value = [&school](const std::string& commands) {
    return View(Play(school, kSectionByStudent,
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
