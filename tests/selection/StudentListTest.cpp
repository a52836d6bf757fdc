#include "tests/selection/StepOne.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

/// `cboAlumno`: the students of the section's register with rows in an evaluation.
class StudentListTest : public OwnListTest {
 protected:
  StudentListTest() : OwnListTest(kSectionBySubject) {}

  /// The keys that the main grade book has for a placement of the student, as pending keys have.
  void Keep(int key, int student) const {
    school.Sql(
        "INSERT INTO Alumno_MateriaDetalles (IDAlumno_MateriaDetalles, CodAlumno, "
        "CodMateriaDetalles) VALUES (" +
        std::to_string(key) + "," + std::to_string(student) + ",3116)");
  }
};

TEST_F(StudentListTest, OfAnOrdinaryEvaluationLeavesOutWhoHasLeft) {
  const auto result = ChooseEvaluation(1);
  EXPECT_EQ(Read(result), Asks(1, {Sql(expected::kRegistered, {321, 1, 321, 1})})) << result.Text();
  EXPECT_THAT(Entries(result), UnorderedElementsAre("Díaz Cano, Marta=1", "Ñúñez Sanz, Íñigo=2"));
}

TEST_F(StudentListTest, LeavesOutWhoWasTakenOutOfTheYear) {
  school.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=2");
  EXPECT_THAT(Entries(ChooseEvaluation(1)), ElementsAre("Díaz Cano, Marta=1"));
}

TEST_F(StudentListTest, OfTheFirstFinalAndOfHigherOnesTakesThePlainPath) {
  const auto result = ChooseEvaluation(4);
  EXPECT_EQ(Read(result), Asks(4, {Sql(expected::kRegistered, {321, 4, 321, 4})}));
  EXPECT_THAT(Entries(result), UnorderedElementsAre("Díaz Cano, Marta=1", "Ñúñez Sanz, Íñigo=2"));
  school.Evalua(3, 6);
  const auto third = ChooseEvaluation(6);
  EXPECT_EQ(Read(third), Asks(6, {Sql(expected::kRegistered, {321, 6, 321, 6})}));
  EXPECT_THAT(Entries(third), ElementsAre("Ñúñez Sanz, Íñigo=2"));
}

TEST_F(StudentListTest, ATeacherSeesTheStudentsWhoOweHisSubject) {
  const auto result = ChooseEvaluation(1, Teacher());
  EXPECT_EQ(Read(result), Asks(1, {Sql(expected::kTaughtRegistered, {321, 2, 1, 321, 2, 1})}));
  EXPECT_THAT(Entries(result), ElementsAre("Díaz Cano, Marta=1"));
}

// Only when the session changes under the dialog does a teacher without a row in Personal come
// here: nothing is read for him.
TEST_F(StudentListTest, WithoutStaffNothingIsRead) {
  for (const auto evaluation : {1, 5}) {
    const auto result = ChooseEvaluation(evaluation, Unrestricted(), "sesion perfil=3\n");
    EXPECT_EQ(Read(result), Asks(evaluation, {}));
    EXPECT_THAT(Entries(result), IsEmpty());
    EXPECT_FALSE(FormView(result).Enabled("cmdNotaManual1(0)"));
    EXPECT_THAT(result.Of("error"), IsEmpty());
  }
}

TEST_F(StudentListTest, ALockDoesNotTakeAStudentOffTheList) {
  school.Bloquea(2, 1, 3111, 3, 1);
  EXPECT_THAT(Entries(ChooseEvaluation(1)), SizeIs(2));
}

TEST_F(StudentListTest, OfTheSecondFinalHasWhoFailedTheFirst) {
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=107 WHERE CodAlumnoPte_MatDet IN (1,2) AND "
      "CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=1 AND "
      "CodNumEvaluacion=5");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(
      Read(result),
      ElementsAreArray(Asks(
          5, {Sql(expected::kPendingOfFinal, {321, 5}), Sql(expected::kWithPlacement, {"1,2,3,4"}),
              Sql(expected::kFailed, {4, "1,2,3,4", 321, 4, "1,2,3,4", 321})})))
      << result.Text();
  EXPECT_THAT(Entries(result), ElementsAre("Ñúñez Sanz, Íñigo=2"))
      << "failing the second final itself doesn't count";
}

TEST_F(StudentListTest, OfTheSecondFinalPutsTheKeptBeforeTheFailed) {
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4");
  Keep(2, 1);
  const auto result = ChooseEvaluation(5);
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kPendingOfFinal, {321, 5}),
                                   Sql(expected::kWithPlacement, {"1,2,3,4"}),
                                   Sql(expected::kFailed, {4, "1,2,3,4", 321, 4, "1,2,3,4", 321}),
                                   Sql(expected::kStudentsShown, {"1,2"})}));
  EXPECT_THAT(Entries(result), UnorderedElementsAre("Díaz Cano, Marta=1", "Ñúñez Sanz, Íñigo=2"));
}

// The keys of pending subjects are compared with those of the main grade book: whoever has that
// key there is kept, on the register or not.
TEST_F(StudentListTest, OfTheSecondFinalKeepsByTheKeysOfAnotherTable) {
  Keep(3, 5);
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), Contains(Sql(expected::kStudentsShown, {"5"})));
  EXPECT_THAT(Entries(result), ElementsAre("Blanco Mas, Hugo=5"));
}

TEST_F(StudentListTest, OfTheSecondFinalWithNobodyFailedIsEmpty) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=107");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), SizeIs(5));
  EXPECT_THAT(Entries(result), IsEmpty());
  EXPECT_FALSE(FormView(result).Enabled("cboAlumno"));
  EXPECT_FALSE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

// The evaluation is still offered for the student who has left, and nobody else has rows in it.
TEST_F(StudentListTest, OfTheSecondFinalWithoutRowsReadsNoMore) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodNumEvaluacion=5 AND CodAlumnoPte_MatDet<>5");
  const auto result = ChooseEvaluation(5);
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kPendingOfFinal, {321, 5})}));
  EXPECT_THAT(Entries(result), IsEmpty());
}

TEST_F(StudentListTest, OfTheSecondFinalForATeacher) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103");
  const auto result = ChooseEvaluation(5, Teacher());
  EXPECT_EQ(Read(result), Asks(5, {Sql(expected::kTaughtPendingOfFinal, {321, 2, 5}),
                                   Sql(expected::kWithPlacement, {"2"}),
                                   Sql(expected::kFailed, {4, "2", 321, 4, "2", 321})}));
  EXPECT_THAT(Entries(result), ElementsAre("Díaz Cano, Marta=1"));
}

}  // namespace
}  // namespace quorvane::test
