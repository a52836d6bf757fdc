#include "tests/selection/StepOne.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

const std::string kSection = "elegir cboSecciones =321";
const std::string kCourse = "elegir cboCursos =32\n";

/// Choosing the section: the same list of evaluations in the four dialogs.
class ChoosingTheSectionTest : public EachDialogTest {
 protected:
  /// A section dialog asks first whether the user is the tutor.
  std::vector<std::string> Expected(std::vector<std::string> statements, int user = 1) const {
    if (dialog_.BySection())
      statements.insert(statements.begin(), Sql(expected::kTutor, {user, 321}));
    return statements;
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, ChoosingTheSectionTest, ::testing::ValuesIn(kDialogs),
                         kNameOfDialog);

TEST_P(ChoosingTheSectionTest, ListsTheEvaluationsOfItsRegister) {
  const auto result = PlayInSection("ver");
  EXPECT_EQ(Statements(result.After(kSection)),
            Expected({Sql(expected::kEvaluations, {321, 321})}));
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboEvaluaciones"),
              ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "Final=4", "Segunda final=5"));
  EXPECT_EQ(view.Index("cboEvaluaciones"), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

// The flags are sorted by their value: where True is 1 the finals and the extraordinary ones come
// first, where it is -1 they come last.
TEST_P(ChoosingTheSectionTest, TheEnginesTrueDecidesTheOrderOfTheEvaluations) {
  school.Evalua(1, 6);
  school.Evalua(1, 3);
  EXPECT_THAT(FormView(PlayInSection("ver")).Entries("cboEvaluaciones"),
              ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "3ª Evaluación=3", "Final=4",
                          "Segunda final=5", "Extraordinaria=6"));
  school.Sql("UPDATE NumEvaluacion SET Final=-Final, Extraordinaria=-Extraordinaria");
  EXPECT_THAT(FormView(PlayInSection("ver")).Entries("cboEvaluaciones"),
              ElementsAre("Extraordinaria=6", "Final=4", "Segunda final=5", "1ª Evaluación=1",
                          "2ª Evaluación=2", "3ª Evaluación=3"));
}

TEST_P(ChoosingTheSectionTest, AnotherSectionHasItsOwn) {
  const auto command = std::string("elegir cboSecciones =331");
  const auto result = Play("elegir cboCursos =33\n" + command + "\nver");
  EXPECT_THAT(Statements(result.After(command)), Contains(Sql(expected::kEvaluations, {331, 331})));
  EXPECT_THAT(FormView(result).Entries("cboEvaluaciones"),
              ElementsAre("1ª Evaluación=1", "Final=4", "Segunda final=5"));
}

TEST_P(ChoosingTheSectionTest, WithoutARegisterThereIsNoEvaluation) {
  const FormView view(Play("elegir cboCursos =31\nelegir cboSecciones =311\nver"));
  EXPECT_THAT(view.Entries("cboEvaluaciones"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboEvaluaciones"));
}

// An evaluation that was chosen before doesn't stay chosen, though it stands in the new list.
TEST_P(ChoosingTheSectionTest, AFormerEvaluationIsReadAndLost) {
  const auto result = PlayIn(1, kSection + "\nver");
  EXPECT_EQ(
      Statements(result.After(kSection)),
      Expected({Sql(expected::kFinalOfFormer, {1}), Sql(expected::kEvaluations, {321, 321})}));
  const FormView view(result);
  EXPECT_EQ(view.Index("cboEvaluaciones"), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
  if (dialog_.BySection()) {
    EXPECT_THAT(view.Entries(dialog_.choice), IsEmpty());
  }
}

TEST_P(ChoosingTheSectionTest, AnEvaluationOfTheFirstListCountsAsChosen) {
  const auto result = Play(kCourse + "elegir cboEvaluaciones =11\n" + kSection + "\nver");
  EXPECT_EQ(
      Statements(result.After(kSection)),
      Expected({Sql(expected::kFinalOfFormer, {11}), Sql(expected::kEvaluations, {321, 321})}));
  EXPECT_FALSE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

// Of an evaluation that has gone meanwhile nothing is read, and the lists stay as they are.
TEST_P(ChoosingTheSectionTest, AFormerEvaluationWithoutARowLeavesTheLists) {
  const auto result =
      PlayIn(1, "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kSection + "\nver");
  EXPECT_EQ(Statements(result.After(kSection)), Expected({Sql(expected::kFinalOfFormer, {1})}));
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboEvaluaciones"), Contains("1ª Evaluación=1"));
  EXPECT_EQ(view.Index("cboEvaluaciones"), 0);
  EXPECT_TRUE(view.Enabled("cmdNotaManual1(0)"));
}

// And the guard is open again: what is chosen next counts.
TEST_P(ChoosingTheSectionTest, AfterAFormerEvaluationWithoutARowTheDialogGoesOn) {
  const auto result =
      PlayIn(1, "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kSection +
                    "\nelegir cboEvaluaciones =2\n" + kSection + "\nver");
  EXPECT_THAT(FormView(result).Entries("cboEvaluaciones"),
              ElementsAre("2ª Evaluación=2", "Final=4", "Segunda final=5"));
}

TEST_P(ChoosingTheSectionTest, AnEvaluationWithoutASectionReadsNothing) {
  const std::string command = "elegir cboEvaluaciones =1";
  const auto result = Play(command + "\nver");
  EXPECT_THAT(Statements(result.After(command)), IsEmpty());
  EXPECT_FALSE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

/// Choosing the evaluation in the dialogs that go on without another choice.
class ChoosingTheEvaluationTest : public EachDialogTest {};

INSTANTIATE_TEST_SUITE_P(StepOne, ChoosingTheEvaluationTest,
                         ::testing::Values(kByStudent, kBySubject), kNameOfDialog);

TEST_P(ChoosingTheEvaluationTest, FreesTheWayOn) {
  const std::string command = "elegir cboEvaluaciones =2";
  const auto result = PlayInSection(command + "\nver");
  EXPECT_THAT(Statements(result.After(command)), ElementsAre(Sql(expected::kFinalOfChosen, {2})));
  EXPECT_TRUE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(ChoosingTheEvaluationTest, AnEvaluationThatHasGoneFreesItToo) {
  const std::string command = "elegir cboEvaluaciones =2";
  const auto result = PlayInSection("sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=2\"\n" +
                                    command + "\nelegir cboEvaluaciones =1\nver");
  EXPECT_THAT(Statements(result.After(command)), ElementsAre(Sql(expected::kFinalOfChosen, {2})));
  EXPECT_THAT(Statements(result.After("elegir cboEvaluaciones =1")),
              ElementsAre(Sql(expected::kFinalOfChosen, {1})));
  EXPECT_TRUE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

/// The dialogs of a section: the list of their own comes with the evaluation.
class SectionDialogTest : public EachDialogTest {};

INSTANTIATE_TEST_SUITE_P(StepOne, SectionDialogTest,
                         ::testing::Values(kSectionByStudent, kSectionBySubject), kNameOfDialog);

TEST_P(SectionDialogTest, TheEvaluationAloneDoesNotGoOn) {
  const auto result = PlayInSection("elegir cboEvaluaciones =1\nver");
  const FormView view(result);
  EXPECT_THAT(view.Entries(dialog_.choice), SizeIs(2)) << result.Text();
  EXPECT_EQ(view.Index(dialog_.choice), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialogTest, AnotherEvaluationLosesTheChoice) {
  const auto result = PlayIn(1, "elegir cboEvaluaciones =4\nver");
  const FormView view(result);
  EXPECT_EQ(view.Index(dialog_.choice), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialogTest, AnEvaluationThatHasGoneIsAnError) {
  const std::string command = "elegir cboEvaluaciones =2";
  const auto result =
      PlayInSection("sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=2\"\n" + command);
  EXPECT_THAT(Statements(result.After(command)), ElementsAre(Sql(expected::kFinalAndOrder, {2})));
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
}

TEST_P(SectionDialogTest, ASecondFinalWithoutAFirstIsAnError) {
  school.Sql("UPDATE NumEvaluacion SET Orden=7 WHERE IDNumEvaluacion=4");
  const std::string command = "elegir cboEvaluaciones =5";
  const auto result = PlayInSection(command);
  EXPECT_THAT(
      Statements(result.After(command)),
      ElementsAre(Sql(expected::kFinalAndOrder, {5}), Sql(expected::kFirstFinalOfList, {-1})));
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
}

TEST_P(SectionDialogTest, TheButtonsWalkItsListAndStopAtTheEnds) {
  const auto index = [this](const std::string& commands) {
    return FormView(PlayInSection("elegir cboEvaluaciones =1\n" + commands + "ver"))
        .Index(dialog_.choice);
  };
  const std::string next = "pulsar cmdSiguiente\n";
  const std::string previous = "pulsar cmdAnterior\n";
  EXPECT_EQ(index(previous), -1) << "nothing is selected: nothing before it";
  EXPECT_EQ(index(next), 0) << "the first entry comes after none";
  EXPECT_EQ(index(next + next), 1);
  EXPECT_EQ(index(next + next + next), 1) << "the last entry";
  EXPECT_EQ(index(next + next + previous), 0);
  EXPECT_EQ(index(next + previous), 0) << "the first entry";
}

TEST_P(SectionDialogTest, WalkingTheListClicksIt) {
  const auto result = PlayInSection("elegir cboEvaluaciones =1\npulsar cmdSiguiente\nver");
  EXPECT_TRUE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialogTest, AnEmptyListBarsTheButtonsAndTheWayOn) {
  school.Sql(
      "DELETE FROM EvaluacionPte; DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>5");
  const auto result = Play("elegir cboEvaluaciones =1\n" + kCourse + kSection +
                           "\nelegir cboEvaluaciones =5\npulsar cmdSiguiente\npulsar "
                           "cmdAnterior\nver");
  const FormView view(result);
  EXPECT_EQ(view.Index(dialog_.choice), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialogTest, ItsListHasALabelAndButtonsWithoutCaption) {
  const FormView view(Play("ver"));
  EXPECT_EQ(view.Text("lblNotamanual1(4)"),
            dialog_.node == kSectionByStudent.node ? "(*) Materia:" : "(*) Alumno:");
  EXPECT_EQ(view.Text("cmdAnterior"), "");
  EXPECT_EQ(view.Text("cmdSiguiente"), "");
  EXPECT_TRUE(view.Has("fraNotaManual1(2)"));
}

/// Who sees all of that list.
class WholeListTest : public OwnListTest, public ::testing::WithParamInterface<Dialog> {
 protected:
  WholeListTest() : OwnListTest(GetParam()) {}

  [[nodiscard]] static Lines AsksForAll() {
    return Asks(1, {GetParam().node == kSectionByStudent.node
                        ? Sql(expected::kSubjects, {321, 3, 1, 1})
                        : Sql(expected::kRegistered, {321, 1, 321, 1})});
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, WholeListTest,
                         ::testing::Values(kSectionByStudent, kSectionBySubject), kNameOfDialog);

TEST_P(WholeListTest, TheTutorSeesTheWholeSection) { EXPECT_EQ(Read(1, Tutor()), AsksForAll()); }

TEST_P(WholeListTest, AProfileBelowZeroSeesTheWholeSection) {
  EXPECT_EQ(Read(1, Unrestricted(), "sesion perfil=-1\n"), AsksForAll());
}

TEST_P(WholeListTest, OnSqlServerTrueIsWrittenOne) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  EXPECT_THAT(Read(5, options), Contains(Sql(expected::kFirstFinalOfList, {1})));
}

}  // namespace
}  // namespace quorvane::test
