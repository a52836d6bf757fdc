#include "tests/selection/StepOne.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

/// Which form opens, and what step one reads before it does.
class StepTwoTest : public EachDialogTest {
 protected:
  StepTwoTest() {
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
  [[nodiscard]] Lines Opens(int evaluation, const ScriptOptions& options = Unrestricted()) const {
    return UpToTheForm(PlayIn(evaluation, kNext, options));
  }
  /// What is asked in all evaluations, and the dialog that goes.
  [[nodiscard]] Lines Leaves(int evaluation) const {
    return {SqlOfUsers(expected::kUser, {1}), Sql(expected::kFinalAndOrder, {evaluation}), Hides()};
  }
  [[nodiscard]] std::string Hides() const { return "oculta " + Name(); }
};

INSTANTIATE_TEST_SUITE_P(StepOne, StepTwoTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(StepTwoTest, OfAnOrdinaryEvaluation) {
  EXPECT_EQ(Opens(1), Leaves(1) + Lines{std::string("carga ") + dialog_.ordinary});
}

TEST_P(StepTwoTest, OfTheFirstFinal) {
  EXPECT_EQ(Opens(4), Leaves(4) + Lines{std::string("carga ") + dialog_.final});
}

TEST_P(StepTwoTest, OfTheSecondFinalReadsTheFirst) {
  EXPECT_EQ(Opens(5), Leaves(5) + Lines({Sql(expected::kFirstFinal, {-1}),
                                         std::string("carga ") + dialog_.final}));
}

TEST_P(StepTwoTest, OfTheSecondFinalOnSqlServer) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  EXPECT_EQ(Opens(5, options), Leaves(5) + Lines({Sql(expected::kFirstFinal, {1}),
                                                  std::string("carga ") + dialog_.final}));
}

TEST_P(StepTwoTest, OfASecondFinalWhoseFirstHasGone) {
  const auto result =
      PlayIn(5, "sql \"UPDATE NumEvaluacion SET Orden=8 WHERE IDNumEvaluacion=4\"\n" + kNext);
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
  EXPECT_THAT(Statements(result.After(kNext)),
              ElementsAre(SqlOfUsers(expected::kUser, {1}), Sql(expected::kFinalAndOrder, {5}),
                          Sql(expected::kFirstFinal, {-1})));
}

TEST_P(StepTwoTest, OfAnEvaluationThatHasGone) {
  const auto result =
      PlayIn(1, "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kNext);
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
  EXPECT_THAT(UpToTheForm(result),
              ElementsAre(SqlOfUsers(expected::kUser, {1}), Sql(expected::kFinalAndOrder, {1}),
                          Hides(), StartsWith("error 3021")));
}

// Step two goes by unloading itself and showing step one again: one show within the other, and
// leaving the inner one ends the node.
TEST_P(StepTwoTest, GivenUpShowsStepOneAgainWithItsChoices) {
  // Two of the forms for finals stumble over a work placement.
  school.Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=4");
  for (const auto evaluation : {1, 5}) {
    const std::string givenUp = kNext + "\npulsar cmdCancelar\n";
    auto commands = Choose(dialog_, evaluation);
    commands += givenUp + "ver\n";
    commands += givenUp + kLeave;
    const auto result = Play(commands);
    EXPECT_EQ(result.status, 0) << result.Text();
    const FormView view(result);
    EXPECT_EQ(view.Index("cboCursos"), 1);
    EXPECT_NE(view.Index("cboEvaluaciones"), -1);
    if (dialog_.BySection()) {
      EXPECT_NE(view.Index(dialog_.choice), -1);
    }
    EXPECT_TRUE(view.Enabled("cmdNotaManual1(0)"));
    EXPECT_THAT(result.After(kLeave), ElementsAre("descarga " + Name(), Hides(),
                                                  "vuelve " + std::to_string(dialog_.node)));
  }
}

}  // namespace
}  // namespace quorvane::test
