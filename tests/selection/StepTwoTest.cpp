#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

/// Which form opens, and what step one reads before it does.
struct Opening {
  Dialog dialog;
  const char* ordinary;
  const char* final;
};

void PrintTo(const Opening& opening, std::ostream* out) { *out << opening.dialog.form; }

class StepTwo : public ::testing::TestWithParam<Opening> {
 protected:
  StepTwo() {
    // Somebody to choose in the second final.
    school.Sql("UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4");
  }

  /// What follows the press, up to the first form that is loaded.
  [[nodiscard]] static std::vector<std::string> UpToTheForm(const ScriptResult& result) {
    std::vector<std::string> lines;
    for (const auto& line : result.After(kNext)) {
      lines.push_back(line);
      if (line.starts_with("carga ")) break;
    }
    return lines;
  }
  [[nodiscard]] ScriptResult Open(int evaluation,
                                  const ScriptOptions& options = Unrestricted()) const {
    return Play(school, GetParam().dialog, Choose(GetParam().dialog, evaluation) + kNext, options);
  }
  [[nodiscard]] static std::string Hides() {
    return std::string("oculta ") + GetParam().dialog.form;
  }

  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(
    StepOne, StepTwo,
    ::testing::Values(
        Opening{kByStudent, "frmNotaManual", "frmNotaManualFinal"},
        Opening{kBySubject, "frmNotaMateria", "frmNotaMateriaFinal"},
        Opening{kSectionByStudent, "frmNotaSeccionAlumno", "frmNotaSeccionAlumnoFinal"},
        Opening{kSectionBySubject, "frmNotaSeccionMateria", "frmNotaSeccionMateriaFinal"}),
    [](const auto& opening) { return std::string(opening.param.dialog.form); });

TEST_P(StepTwo, OfAnOrdinaryEvaluation) {
  const auto result = Open(1);
  EXPECT_THAT(UpToTheForm(result),
              ElementsAre("sql " + Fill(kUser, {1}), "sql " + Fill(kFinalAndOrder, {1}), Hides(),
                          std::string("carga ") + GetParam().ordinary))
      << result.Text();
}

TEST_P(StepTwo, OfTheFirstFinal) {
  const auto result = Open(4);
  EXPECT_THAT(UpToTheForm(result),
              ElementsAre("sql " + Fill(kUser, {1}), "sql " + Fill(kFinalAndOrder, {4}), Hides(),
                          std::string("carga ") + GetParam().final))
      << result.Text();
}

TEST_P(StepTwo, OfTheSecondFinalReadsTheFirst) {
  const auto result = Open(5);
  EXPECT_THAT(UpToTheForm(result),
              ElementsAre("sql " + Fill(kUser, {1}), "sql " + Fill(kFinalAndOrder, {5}), Hides(),
                          "sql " + Fill(kFirstFinalOfStepTwo, {-1}),
                          std::string("carga ") + GetParam().final))
      << result.Text();
}

TEST_P(StepTwo, OfTheSecondFinalOnSqlServer) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  EXPECT_THAT(UpToTheForm(Open(5, options)),
              ElementsAre("sql " + Fill(kUser, {1}), "sql " + Fill(kFinalAndOrder, {5}), Hides(),
                          "sql " + Fill(kFirstFinalOfStepTwo, {1}),
                          std::string("carga ") + GetParam().final));
}

TEST_P(StepTwo, OfASecondFinalWhoseFirstHasGone) {
  const auto result =
      Play(school, GetParam().dialog,
           Choose(GetParam().dialog, 5) +
               "sql \"UPDATE NumEvaluacion SET Orden=8 WHERE IDNumEvaluacion=4\"\n" + kNext);
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
  EXPECT_THAT(
      Statements(result.After(kNext)),
      ElementsAre(Fill(kUser, {1}), Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfStepTwo, {-1})));
}

TEST_P(StepTwo, OfAnEvaluationThatHasGone) {
  const auto result =
      Play(school, GetParam().dialog,
           Choose(GetParam().dialog, 1) +
               "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kNext);
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
  EXPECT_THAT(UpToTheForm(result),
              ElementsAre("sql " + Fill(kUser, {1}), "sql " + Fill(kFinalAndOrder, {1}), Hides(),
                          StartsWith("error 3021")));
}

// Step two goes by unloading itself and showing step one again: one show within the other, and
// leaving the inner one ends the node.
TEST_P(StepTwo, GivenUpShowsStepOneAgainWithItsChoices) {
  const auto& dialog = GetParam().dialog;
  // Two of the forms for finals stumble over a work placement.
  school.Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=4");
  for (const auto evaluation : {1, 5}) {
    const std::string givenUp = kNext + "\npulsar cmdCancelar\n";
    auto commands = Choose(dialog, evaluation);
    commands += givenUp + "ver\n";
    commands += givenUp + kLeave;
    const auto result = Play(school, dialog, commands);
    EXPECT_EQ(result.status, 0) << result.Text();
    const View view(result);
    EXPECT_EQ(view.Index("cboCursos"), 1);
    EXPECT_NE(view.Index("cboEvaluaciones"), -1);
    if (dialog.BySection()) {
      EXPECT_NE(view.Index(dialog.choice), -1);
    }
    EXPECT_TRUE(view.Enabled("cmdNotaManual1(0)"));
    EXPECT_THAT(result.After(kLeave), ElementsAre(std::string("descarga ") + dialog.form, Hides(),
                                                  "vuelve " + std::to_string(dialog.node)));
  }
}

}  // namespace
}  // namespace quorvane::test
