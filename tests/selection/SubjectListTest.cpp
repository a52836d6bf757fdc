#include "tests/selection/StepOne.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

/// `cboMateria`: the pending subjects that the register of the section holds in an evaluation.
class SubjectListTest : public OwnListTest {
 protected:
  SubjectListTest() : OwnListTest(kSectionByStudent) {}
};

TEST_F(SubjectListTest, OfAnOrdinaryEvaluation) {
  const auto result = ChooseEvaluation(1);
  EXPECT_EQ(Read(result), Asks(1, {Sql(expected::kSubjects, {321, 3, 1, 1})})) << result.Text();
  EXPECT_THAT(Entries(result),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Matemáticas (1º ESO)=3112"));
}

TEST_F(SubjectListTest, OfTheFirstFinalHasTheWorkPlacementToo) {
  const auto result = ChooseEvaluation(4);
  EXPECT_EQ(Read(result), Asks(4, {Sql(expected::kFinalSubjects, {321, 3, 4, 4})}));
  EXPECT_THAT(Entries(result),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Matemáticas (1º ESO)=3112",
                                   "Taller (1º ESO)=3116"));
}

// Of the final evaluations only that of order 2 is a second one.
TEST_F(SubjectListTest, OfAFinalOfAHigherOrderTakesThePlainPath) {
  school.Evalua(1, 6);
  const auto result = ChooseEvaluation(6);
  EXPECT_EQ(Read(result), Asks(6, {Sql(expected::kFinalSubjects, {321, 3, 6, 6})}));
  EXPECT_THAT(Entries(result), ElementsAre("Lengua (1º ESO)=3111"));
}

TEST_F(SubjectListTest, ATeacherSeesTheSubjectsThatAreHis) {
  const auto result = ChooseEvaluation(1, Teacher());
  EXPECT_EQ(Read(result), Asks(1, {Sql(expected::kTaughtSubjects, {321, 3, 2, 1, 1})}));
  EXPECT_THAT(Entries(result), ElementsAre("Matemáticas (1º ESO)=3112"));
  const auto last = ChooseEvaluation(4, Teacher());
  EXPECT_EQ(Read(last), Asks(4, {Sql(expected::kTaughtFinalSubjects, {321, 3, 2, 4, 4})}));
  EXPECT_THAT(Entries(last), ElementsAre("Matemáticas (1º ESO)=3112"));
}

// A user who is no member of staff can only come here when the session changes under the dialog.
TEST_F(SubjectListTest, WithoutStaffTheStatementAsksForTeacherZero) {
  const auto result = ChooseEvaluation(1, Unrestricted(), "sesion perfil=3\n");
  EXPECT_EQ(Read(result), Asks(1, {Sql(expected::kTaughtSubjects, {321, 3, 0, 1, 1})}));
  EXPECT_THAT(Entries(result), IsEmpty());
}

TEST_F(SubjectListTest, ALockedSubjectIsOfferedToNobody) {
  school.Bloquea(2, 1, 3111, 3, 1);
  EXPECT_THAT(Entries(ChooseEvaluation(1)), ElementsAre("Matemáticas (1º ESO)=3112"));
  EXPECT_THAT(Entries(ChooseEvaluation(2)), ElementsAre("Lengua (1º ESO)=3111"))
      << "the lock holds in its own evaluation";
}

TEST_F(SubjectListTest, TheSameSubjectOfTwoCoursesStandsTwice) {
  const auto pending = school.Pendiente(2, 3211, 3);
  school.Evalua(pending, 1);
  EXPECT_THAT(Entries(ChooseEvaluation(1)),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Matemáticas (1º ESO)=3112",
                                   "Lengua (2º ESO)=3211"));
}

// In the second final: what a student has failed in whichever final, and the work placements.
TEST_F(SubjectListTest, OfTheSecondFinalKeepsTheFailedSubjectsAndThePlacement) {
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=107 WHERE CodAlumnoPte_MatDet IN (1,2) AND "
      "CodNumEvaluacion=4");
  const auto result = ChooseEvaluation(5);
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kFinalSubjects, {321, 3, 5, 5}),
                                   Sql(expected::kSubjectsPassed, {"3111,3112"}),
                                   Sql(expected::kSubjectsShown, {"3116,3111"})}))
      << result.Text();
  EXPECT_THAT(Entries(result),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Taller (1º ESO)=3116"));
}

TEST_F(SubjectListTest, OfTheSecondFinalCountsAFailureOfAnyFinal) {
  school.Sql(
      "DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4;"
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=5");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), Contains(Sql(expected::kSubjectsShown, {"3112"})));
  EXPECT_THAT(Entries(result), ElementsAre("Matemáticas (1º ESO)=3112"));
}

TEST_F(SubjectListTest, OfTheSecondFinalWithPlacementsAloneAsksForNoGrades) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>4");
  const auto result = ChooseEvaluation(5);
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kFinalSubjects, {321, 3, 5, 5}),
                                   Sql(expected::kSubjectsShown, {"3116"})}));
  EXPECT_THAT(Entries(result), ElementsAre("Taller (1º ESO)=3116"));
}

// Nothing failed and no placement: what was read last stands, and nothing of it passes the filter.
TEST_F(SubjectListTest, OfTheSecondFinalWithNothingFailedIsEmpty) {
  school.Sql(
      "DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4;"
      "UPDATE EvaluacionActaPte SET CodNota=107 WHERE CodNumEvaluacion=4");
  const auto result = ChooseEvaluation(5);
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kFinalSubjects, {321, 3, 5, 5}),
                                   Sql(expected::kSubjectsPassed, {"3111,3112"})}));
  EXPECT_THAT(Entries(result), IsEmpty());
  EXPECT_FALSE(FormView(result).Enabled("cboMateria"));
  EXPECT_FALSE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

TEST_F(SubjectListTest, OfTheSecondFinalWithoutGradesIsEmpty) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4");
  EXPECT_THAT(Entries(ChooseEvaluation(5)), IsEmpty());
}

TEST_F(SubjectListTest, OfTheSecondFinalWithEverythingLockedReadsNoMore) {
  for (const auto subject : {3111, 3112, 3116}) school.Bloquea(2, 5, subject, 3, 1);
  const auto result = ChooseEvaluation(5);
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kFinalSubjects, {321, 3, 5, 5})}));
  EXPECT_THAT(Entries(result), IsEmpty());
}

TEST_F(SubjectListTest, OfTheSecondFinalForATeacher) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103");
  const auto result = ChooseEvaluation(5, Teacher());
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kTaughtFinalSubjects, {321, 3, 2, 5, 5}),
                                   Sql(expected::kSubjectsPassed, {"3112"}),
                                   Sql(expected::kSubjectsShown, {"3112"})}));
}

}  // namespace
}  // namespace quorvane::test
