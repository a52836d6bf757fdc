#include "tests/selection/StepOne.h"

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
  [[nodiscard]] static Lines UpToTheForm(const ScriptResult& result) {
    Lines lines;
    for (const auto& line : result.After(kNext)) {
      lines.push_back(line);
      if (line.starts_with("carga ")) break;
    }
    return lines;
  }
  /// Going on asks what is asked in all evaluations, hides the dialog and does the rest.
  void ExpectOpens(int evaluation, const Lines& rest,
                   const ScriptOptions& options = Unrestricted()) const {
    EXPECT_EQ(UpToTheForm(PlayIn(evaluation, kNext, options)),
              (Lines{SqlOfUsers(kUser, {1}), Sql(kFinalAndOrder, {evaluation}), Hides()} + rest));
  }
  [[nodiscard]] std::string Hides() const { return "oculta " + Name(); }
};

INSTANTIATE_TEST_SUITE_P(StepOne, StepTwoTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(StepTwoTest, OfAnOrdinaryEvaluation) {
  ExpectOpens(1, {std::string("carga ") + dialog_.ordinary});
}

TEST_P(StepTwoTest, OfTheFirstFinal) { ExpectOpens(4, {"carga " + dialog_.Final()}); }

TEST_P(StepTwoTest, OfTheSecondFinalReadsTheFirst) {
  ExpectOpens(5, {Sql(kFirstFinal, {-1}), "carga " + dialog_.Final()});
}

TEST_P(StepTwoTest, OfTheSecondFinalOnSqlServer) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  ExpectOpens(5, {Sql(kFirstFinal, {1}), "carga " + dialog_.Final()}, options);
}

TEST_P(StepTwoTest, OfASecondFinalWhoseFirstHasGone) {
  const auto result =
      PlayIn(5, "sql \"UPDATE NumEvaluacion SET Orden=8 WHERE IDNumEvaluacion=4\"\n" + kNext);
  ExpectError(result, 3021);
  EXPECT_THAT(AskedBy(result, kNext), ElementsAre(SqlOfUsers(kUser, {1}), Sql(kFinalAndOrder, {5}),
                                                  Sql(kFirstFinal, {-1})));
}

TEST_P(StepTwoTest, OfAnEvaluationThatHasGone) {
  const auto result =
      PlayIn(1, "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kNext);
  ExpectError(result, 3021);
  EXPECT_THAT(UpToTheForm(result), ElementsAre(SqlOfUsers(kUser, {1}), Sql(kFinalAndOrder, {1}),
                                               Hides(), StartsWith("error 3021")));
}

// Step two goes by unloading itself and showing step one again: one show within the other, and
// leaving the inner one ends the node.
TEST_P(StepTwoTest, GivenUpShowsStepOneAgainWithItsChoices) {
  // Two of the forms for finals stumble over a work placement.
  school.Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=4");
  const auto givenUp = kNext + "\npulsar cmdCancelar\n";
  for (const auto evaluation : {1, 5}) {
    const auto result = PlayIn(evaluation, givenUp + "ver\n" + givenUp + kLeave);
    EXPECT_EQ(result.status, 0) << result.Text();
    const FormView view(result);
    EXPECT_EQ(view.Index("cboCursos"), 1);
    EXPECT_NE(view.Index("cboEvaluaciones"), -1);
    EXPECT_TRUE(!dialog_.BySection() || view.Index(dialog_.choice) != -1);
    ExpectFree(result);
    EXPECT_THAT(result.After(kLeave), ElementsAre("descarga " + Name(), Hides(),
                                                  "vuelve " + std::to_string(dialog_.node)));
  }
}

}  // namespace
}  // namespace quorvane::test
