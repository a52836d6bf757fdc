#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kSection = "elegir cboSecciones =321";
const std::string kCourse = "elegir cboCursos =32\n";

/// Choosing the section: the same list of evaluations in the four dialogs.
class ChoosingTheSection : public ::testing::TestWithParam<Dialog> {
 protected:
  /// A section dialog asks first whether the user is the tutor.
  static std::vector<std::string> Expected(std::vector<std::string> statements, int user = 1) {
    if (GetParam().BySection()) statements.insert(statements.begin(), Fill(kTutor, {user, 321}));
    return statements;
  }

  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(StepOne, ChoosingTheSection, ::testing::ValuesIn(kDialogs),
                         [](const auto& dialog) { return std::string(dialog.param.form); });

TEST_P(ChoosingTheSection, ListsTheEvaluationsOfItsRegister) {
  const auto result = Play(school, GetParam(), kCourse + kSection + "\nver");
  EXPECT_EQ(Statements(result.After(kSection)), Expected({Fill(kEvaluations, {321, 321})}));
  const View view(result);
  EXPECT_THAT(view.Entries("cboEvaluaciones"),
              ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "Final=4", "Segunda final=5"));
  EXPECT_EQ(view.Index("cboEvaluaciones"), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

// The flags are sorted by their value: where True is 1 the finals and the extraordinary ones come
// first, where it is -1 they come last.
TEST_P(ChoosingTheSection, TheEnginesTrueDecidesTheOrderOfTheEvaluations) {
  school.Evalua(1, 6);
  school.Evalua(1, 3);
  EXPECT_THAT(
      View(Play(school, GetParam(), kCourse + kSection + "\nver")).Entries("cboEvaluaciones"),
      ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "3ª Evaluación=3", "Final=4",
                  "Segunda final=5", "Extraordinaria=6"));
  school.Sql("UPDATE NumEvaluacion SET Final=-Final, Extraordinaria=-Extraordinaria");
  EXPECT_THAT(
      View(Play(school, GetParam(), kCourse + kSection + "\nver")).Entries("cboEvaluaciones"),
      ElementsAre("Extraordinaria=6", "Final=4", "Segunda final=5", "1ª Evaluación=1",
                  "2ª Evaluación=2", "3ª Evaluación=3"));
}

TEST_P(ChoosingTheSection, AnotherSectionHasItsOwn) {
  const auto command = std::string("elegir cboSecciones =331");
  const auto result = Play(school, GetParam(), "elegir cboCursos =33\n" + command + "\nver");
  EXPECT_THAT(Statements(result.After(command)), Contains(Fill(kEvaluations, {331, 331})));
  EXPECT_THAT(View(result).Entries("cboEvaluaciones"),
              ElementsAre("1ª Evaluación=1", "Final=4", "Segunda final=5"));
}

TEST_P(ChoosingTheSection, WithoutARegisterThereIsNoEvaluation) {
  const View view(Play(school, GetParam(), "elegir cboCursos =31\nelegir cboSecciones =311\nver"));
  EXPECT_THAT(view.Entries("cboEvaluaciones"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboEvaluaciones"));
}

// An evaluation that was chosen before doesn't stay chosen, though it stands in the new list.
TEST_P(ChoosingTheSection, AFormerEvaluationIsReadAndLost) {
  const auto result = Play(school, GetParam(), Choose(GetParam(), 1) + kSection + "\nver");
  EXPECT_EQ(Statements(result.After(kSection)),
            Expected({Fill(kFinalOfFormer, {1}), Fill(kEvaluations, {321, 321})}));
  const View view(result);
  EXPECT_EQ(view.Index("cboEvaluaciones"), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
  if (GetParam().BySection()) {
    EXPECT_THAT(view.Entries(GetParam().choice), IsEmpty());
  }
}

TEST_P(ChoosingTheSection, AnEvaluationOfTheFirstListCountsAsChosen) {
  const auto result =
      Play(school, GetParam(), kCourse + "elegir cboEvaluaciones =11\n" + kSection + "\nver");
  EXPECT_EQ(Statements(result.After(kSection)),
            Expected({Fill(kFinalOfFormer, {11}), Fill(kEvaluations, {321, 321})}));
  EXPECT_FALSE(View(result).Enabled("cmdNotaManual1(0)"));
}

// Of an evaluation that has gone meanwhile nothing is read, and the lists stay as they are.
TEST_P(ChoosingTheSection, AFormerEvaluationWithoutARowLeavesTheLists) {
  const auto result =
      Play(school, GetParam(),
           Choose(GetParam(), 1) + "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" +
               kSection + "\nver");
  EXPECT_EQ(Statements(result.After(kSection)), Expected({Fill(kFinalOfFormer, {1})}));
  const View view(result);
  EXPECT_THAT(view.Entries("cboEvaluaciones"), Contains("1ª Evaluación=1"));
  EXPECT_EQ(view.Index("cboEvaluaciones"), 0);
  EXPECT_TRUE(view.Enabled("cmdNotaManual1(0)"));
}

// And the guard is open again: what is chosen next counts.
TEST_P(ChoosingTheSection, AfterAFormerEvaluationWithoutARowTheDialogGoesOn) {
  const auto result =
      Play(school, GetParam(),
           Choose(GetParam(), 1) + "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" +
               kSection + "\nelegir cboEvaluaciones =2\n" + kSection + "\nver");
  EXPECT_THAT(View(result).Entries("cboEvaluaciones"),
              ElementsAre("2ª Evaluación=2", "Final=4", "Segunda final=5"));
}

TEST_P(ChoosingTheSection, AnEvaluationWithoutASectionReadsNothing) {
  const std::string command = "elegir cboEvaluaciones =1";
  const auto result = Play(school, GetParam(), command + "\nver");
  EXPECT_THAT(Statements(result.After(command)), IsEmpty());
  EXPECT_FALSE(View(result).Enabled("cmdNotaManual1(0)"));
}

/// Choosing the evaluation in the dialogs that go on without another choice.
class ChoosingTheEvaluation : public ::testing::TestWithParam<Dialog> {
 protected:
  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(StepOne, ChoosingTheEvaluation, ::testing::Values(kByStudent, kBySubject),
                         [](const auto& dialog) { return std::string(dialog.param.form); });

TEST_P(ChoosingTheEvaluation, FreesTheWayOn) {
  const std::string command = "elegir cboEvaluaciones =2";
  const auto result = Play(school, GetParam(), kCourse + kSection + "\n" + command + "\nver");
  EXPECT_THAT(Statements(result.After(command)), ElementsAre(Fill(kFinalOfChosen, {2})));
  EXPECT_TRUE(View(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(ChoosingTheEvaluation, AnEvaluationThatHasGoneFreesItToo) {
  const std::string command = "elegir cboEvaluaciones =2";
  const auto result =
      Play(school, GetParam(),
           kCourse + kSection + "\nsql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=2\"\n" +
               command + "\nelegir cboEvaluaciones =1\nver");
  EXPECT_THAT(Statements(result.After(command)), ElementsAre(Fill(kFinalOfChosen, {2})));
  EXPECT_THAT(Statements(result.After("elegir cboEvaluaciones =1")),
              ElementsAre(Fill(kFinalOfChosen, {1})));
  EXPECT_TRUE(View(result).Enabled("cmdNotaManual1(0)"));
}

/// The dialogs of a section: the list of their own comes with the evaluation.
class SectionDialog : public ::testing::TestWithParam<Dialog> {
 protected:
  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(StepOne, SectionDialog,
                         ::testing::Values(kSectionByStudent, kSectionBySubject),
                         [](const auto& dialog) { return std::string(dialog.param.form); });

TEST_P(SectionDialog, TheEvaluationAloneDoesNotGoOn) {
  const auto result =
      Play(school, GetParam(), kCourse + kSection + "\nelegir cboEvaluaciones =1\nver");
  const View view(result);
  EXPECT_THAT(view.Entries(GetParam().choice), ::testing::SizeIs(2)) << result.Text();
  EXPECT_EQ(view.Index(GetParam().choice), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialog, AnotherEvaluationLosesTheChoice) {
  const auto result =
      Play(school, GetParam(), Choose(GetParam(), 1) + "elegir cboEvaluaciones =4\nver");
  const View view(result);
  EXPECT_EQ(view.Index(GetParam().choice), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialog, AnEvaluationThatHasGoneIsAnError) {
  const std::string command = "elegir cboEvaluaciones =2";
  const auto result =
      Play(school, GetParam(),
           kCourse + kSection + "\nsql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=2\"\n" +
               command);
  EXPECT_THAT(Statements(result.After(command)), ElementsAre(Fill(kFinalAndOrder, {2})));
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
}

TEST_P(SectionDialog, ASecondFinalWithoutAFirstIsAnError) {
  school.Sql("UPDATE NumEvaluacion SET Orden=7 WHERE IDNumEvaluacion=4");
  const std::string command = "elegir cboEvaluaciones =5";
  const auto result = Play(school, GetParam(), kCourse + kSection + "\n" + command);
  EXPECT_THAT(Statements(result.After(command)),
              ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1})));
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("3021 ")));
}

TEST_P(SectionDialog, TheButtonsWalkItsListAndStopAtTheEnds) {
  const auto index = [this](const std::string& commands) {
    return View(Play(school, GetParam(),
                     kCourse + kSection + "\nelegir cboEvaluaciones =1\n" + commands + "ver"))
        .Index(GetParam().choice);
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

TEST_P(SectionDialog, WalkingTheListClicksIt) {
  const auto result =
      Play(school, GetParam(),
           kCourse + kSection + "\nelegir cboEvaluaciones =1\npulsar cmdSiguiente\nver");
  EXPECT_TRUE(View(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialog, AnEmptyListBarsTheButtonsAndTheWayOn) {
  school.Sql(
      "DELETE FROM EvaluacionPte; DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>5");
  const auto result = Play(school, GetParam(),
                           "elegir cboEvaluaciones =1\n" + kCourse + kSection +
                               "\nelegir cboEvaluaciones =5\npulsar cmdSiguiente\npulsar "
                               "cmdAnterior\nver");
  const View view(result);
  EXPECT_EQ(view.Index(GetParam().choice), -1);
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(SectionDialog, ItsListHasALabelAndButtonsWithoutCaption) {
  const View view(Play(school, GetParam(), "ver"));
  EXPECT_EQ(view.Caption("lblNotamanual1(4)"),
            GetParam().node == kSectionByStudent.node ? "(*) Materia:" : "(*) Alumno:");
  EXPECT_EQ(view.Caption("cmdAnterior"), "");
  EXPECT_EQ(view.Caption("cmdSiguiente"), "");
  EXPECT_TRUE(view.Has("fraNotaManual1(2)"));
}

}  // namespace
}  // namespace quorvane::test
