#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

const std::string kDeleteFirst = "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n";
const std::string kDeleteSecond = "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=2\"\n";

/// Choosing the section: the same list of evaluations in the four dialogs.
class ChoosingTheSectionTest : public EachDialogTest {
 protected:
  /// A section dialog asks first whether the user is the tutor.
  void ExpectAsked(const ScriptResult& result, Lines statements) const {
    if (dialog_.BySection()) statements.insert(statements.begin(), Sql(kTutor, {1, 321}));
    EXPECT_EQ(AskedBy(result, kSection), statements);
  }
  static Lines Evaluations(const ScriptResult& result) {
    return FormView(result).Entries("cboEvaluaciones");
  }
  static int Chosen(const ScriptResult& result) {
    return FormView(result).Index("cboEvaluaciones");
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, ChoosingTheSectionTest, ::testing::ValuesIn(kDialogs),
                         kNameOfDialog);

TEST_P(ChoosingTheSectionTest, ListsTheEvaluationsOfItsRegister) {
  const auto result = PlayInSection("ver");
  ExpectAsked(result, {Sql(kEvaluations, {321, 321})});
  EXPECT_THAT(Evaluations(result),
              ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "Final=4", "Segunda final=5"));
  EXPECT_EQ(Chosen(result), -1);
  ExpectBarred(result);
}

// The flags are sorted by their value: where True is 1 the finals and the extraordinary ones come
// first, where it is -1 they come last.
TEST_P(ChoosingTheSectionTest, TheEnginesTrueDecidesTheOrderOfTheEvaluations) {
  school.Evalua(1, 6);
  school.Evalua(1, 3);
  EXPECT_THAT(Evaluations(PlayInSection("ver")),
              ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "3ª Evaluación=3", "Final=4",
                          "Segunda final=5", "Extraordinaria=6"));
  school.Sql("UPDATE NumEvaluacion SET Final=-Final, Extraordinaria=-Extraordinaria");
  EXPECT_THAT(Evaluations(PlayInSection("ver")),
              ElementsAre("Extraordinaria=6", "Final=4", "Segunda final=5", "1ª Evaluación=1",
                          "2ª Evaluación=2", "3ª Evaluación=3"));
}

TEST_P(ChoosingTheSectionTest, AnotherSectionHasItsOwn) {
  const std::string command = "elegir cboSecciones =331";
  const auto result = Play("elegir cboCursos =33\n" + command + "\nver");
  EXPECT_THAT(AskedBy(result, command), Contains(Sql(kEvaluations, {331, 331})));
  EXPECT_THAT(Evaluations(result), ElementsAre("1ª Evaluación=1", "Final=4", "Segunda final=5"));
}

TEST_P(ChoosingTheSectionTest, WithoutARegisterThereIsNoEvaluation) {
  const auto result = Play("elegir cboCursos =31\nelegir cboSecciones =311\nver");
  EXPECT_THAT(Evaluations(result), IsEmpty());
  EXPECT_FALSE(FormView(result).Enabled("cboEvaluaciones"));
}

// An evaluation that was chosen before doesn't stay chosen, though it stands in the new list.
TEST_P(ChoosingTheSectionTest, AFormerEvaluationIsReadAndLost) {
  const auto result = PlayIn(1, kSection + "\nver");
  ExpectAsked(result, {Sql(kFinalOfFormer, {1}), Sql(kEvaluations, {321, 321})});
  EXPECT_EQ(Chosen(result), -1);
  ExpectBarred(result);
  EXPECT_TRUE(!dialog_.BySection() || FormView(result).Entries(dialog_.choice).empty());
}

TEST_P(ChoosingTheSectionTest, AnEvaluationOfTheFirstListCountsAsChosen) {
  const auto result = Play("elegir cboCursos =32\n" + Evaluation(11) + "\n" + kSection + "\nver");
  ExpectAsked(result, {Sql(kFinalOfFormer, {11}), Sql(kEvaluations, {321, 321})});
  ExpectBarred(result);
}

// Of an evaluation that has gone meanwhile nothing is read, and the lists stay as they are.
TEST_P(ChoosingTheSectionTest, AFormerEvaluationWithoutARowLeavesTheLists) {
  const auto result = PlayIn(1, kDeleteFirst + kSection + "\nver");
  ExpectAsked(result, {Sql(kFinalOfFormer, {1})});
  EXPECT_THAT(Evaluations(result), Contains("1ª Evaluación=1"));
  EXPECT_EQ(Chosen(result), 0);
  ExpectFree(result);
}

// And the guard is open again: what is chosen next counts.
TEST_P(ChoosingTheSectionTest, AfterAFormerEvaluationWithoutARowTheDialogGoesOn) {
  const auto result =
      PlayIn(1, kDeleteFirst + kSection + "\n" + Evaluation(2) + "\n" + kSection + "\nver");
  EXPECT_THAT(result.Of("rechazo"), IsEmpty());
  EXPECT_THAT(Evaluations(result), ElementsAre("2ª Evaluación=2", "Final=4", "Segunda final=5"));
}

TEST_P(ChoosingTheSectionTest, AnEvaluationWithoutASectionReadsNothing) {
  const auto result = Play(Evaluation(1) + "\nver");
  EXPECT_THAT(AskedBy(result, Evaluation(1)), IsEmpty());
  ExpectBarred(result);
}

/// Choosing the evaluation in the dialogs that go on without another choice.
class ChoosingTheEvaluationTest : public EachDialogTest {};

INSTANTIATE_TEST_SUITE_P(StepOne, ChoosingTheEvaluationTest,
                         ::testing::Values(kByStudent, kBySubject), kNameOfDialog);

TEST_P(ChoosingTheEvaluationTest, FreesTheWayOn) {
  const auto result = PlayInSection(Evaluation(2) + "\nver");
  EXPECT_THAT(AskedBy(result, Evaluation(2)), ElementsAre(Sql(kFinalOfChosen, {2})));
  ExpectFree(result);
}

TEST_P(ChoosingTheEvaluationTest, AnEvaluationThatHasGoneFreesItToo) {
  const auto result = PlayInSection(kDeleteSecond + Evaluation(2) + "\n" + Evaluation(1) + "\nver");
  for (const auto evaluation : {2, 1})
    EXPECT_THAT(AskedBy(result, Evaluation(evaluation)),
                ElementsAre(Sql(kFinalOfChosen, {evaluation})));
  ExpectFree(result);
}

/// The dialogs of a section: the list of their own comes with the evaluation.
class SectionDialogTest : public EachDialogTest {
 protected:
  void ExpectNothingChosen(const ScriptResult& result) const {
    EXPECT_EQ(FormView(result).Index(dialog_.choice), -1);
    ExpectBarred(result);
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, SectionDialogTest,
                         ::testing::Values(kSectionByStudent, kSectionBySubject), kNameOfDialog);

TEST_P(SectionDialogTest, TheEvaluationAloneDoesNotGoOnAndAnotherOneLosesTheChoice) {
  const auto result = PlayInSection(Evaluation(1) + "\nver");
  EXPECT_THAT(FormView(result).Entries(dialog_.choice), SizeIs(2)) << result.Text();
  ExpectNothingChosen(result);
  ExpectNothingChosen(PlayIn(1, Evaluation(4) + "\nver"));
}

TEST_P(SectionDialogTest, AnEvaluationThatHasGoneIsAnError) {
  const auto result = PlayInSection(kDeleteSecond + Evaluation(2));
  EXPECT_THAT(AskedBy(result, Evaluation(2)), ElementsAre(Sql(kFinalAndOrder, {2})));
  ExpectError(result, 3021);
}

TEST_P(SectionDialogTest, ASecondFinalWithoutAFirstIsAnError) {
  school.Sql("UPDATE NumEvaluacion SET Orden=7 WHERE IDNumEvaluacion=4");
  const auto result = PlayInSection(Evaluation(5));
  EXPECT_THAT(AskedBy(result, Evaluation(5)),
              ElementsAre(Sql(kFinalAndOrder, {5}), Sql(kFirstFinalOfList, {-1})));
  ExpectError(result, 3021);
}

TEST_P(SectionDialogTest, TheButtonsWalkItsListAndStopAtTheEnds) {
  const auto index = [this](const std::string& commands) {
    return FormView(PlayInSection(Evaluation(1) + "\n" + commands + "ver")).Index(dialog_.choice);
  };
  const std::string next = "pulsar cmdSiguiente\n";
  const std::string previous = "pulsar cmdAnterior\n";
  EXPECT_EQ(index(previous), -1) << "nothing is selected: nothing before it";
  EXPECT_EQ(index(next), 0) << "the first entry comes after none";
  EXPECT_EQ(index(next + next), 1);
  EXPECT_EQ(index(next + next + next), 1) << "the last entry";
  EXPECT_EQ(index(next + next + previous), 0);
  EXPECT_EQ(index(next + previous), 0) << "the first entry";
  // Walking the list clicks it.
  ExpectFree(PlayInSection(Evaluation(1) + "\n" + next + "ver"));
}

TEST_P(SectionDialogTest, AnEmptyListBarsTheButtonsAndTheWayOn) {
  school.Sql(
      "DELETE FROM EvaluacionPte; DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>5");
  ExpectNothingChosen(Play(Evaluation(1) + "\nelegir cboCursos =32\n" + kSection + "\n" +
                           Evaluation(5) + "\npulsar cmdSiguiente\npulsar cmdAnterior\nver"));
}

TEST_P(SectionDialogTest, ItsListHasAFrameAndButtonsWithoutCaption) {
  const FormView view(Play("ver"));
  EXPECT_EQ(view.Text("cmdAnterior"), "");
  EXPECT_EQ(view.Text("cmdSiguiente"), "");
  EXPECT_TRUE(view.Has("fraNotaManual1(2)"));
}

/// That list, whole.
class WholeListTest : public OwnListTest, public ::testing::WithParamInterface<Dialog> {
 protected:
  WholeListTest() : OwnListTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(StepOne, WholeListTest,
                         ::testing::Values(kSectionByStudent, kSectionBySubject), kNameOfDialog);

TEST_P(WholeListTest, IsSeenByTheTutorAndByAProfileBelowZero) {
  const auto all =
      Asks(1, {GetParam().node == kSectionByStudent.node ? Sql(kSubjects, {321, 3, 1, 1})
                                                         : Sql(kRegistered, {321, 1, 321, 1})});
  EXPECT_EQ(Read(1, Tutor()), all);
  EXPECT_EQ(Read(1, Unrestricted(), "sesion perfil=-1\n"), all);
}

TEST_P(WholeListTest, OnSqlServerTrueIsWrittenOne) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  EXPECT_THAT(Read(5, options), Contains(Sql(kFirstFinalOfList, {1})));
}

}  // namespace
}  // namespace quorvane::test
