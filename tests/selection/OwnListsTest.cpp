#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

constexpr const char* kMarta = "Díaz Cano, Marta=1";
constexpr const char* kInigo = "Ñúñez Sanz, Íñigo=2";

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
  /// What the second final reads, up to who failed.
  static Lines OfSecondFinal(const std::string& pending) {
    return {Sql(kPendingOfFinal, {321, 5}), Sql(kWithPlacement, {pending}),
            Sql(kFailed, {4, pending, 321, 4, pending, 321})};
  }
};

TEST_F(StudentListTest, LeavesOutWhoHasLeftInAllButTheSecondFinal) {
  for (const auto evaluation : {1, 4})
    Expect(evaluation, {Sql(kRegistered, {321, evaluation, 321, evaluation})}, {kMarta, kInigo});
  school.Evalua(3, 6);
  Expect(6, {Sql(kRegistered, {321, 6, 321, 6})}, {kInigo});
}

TEST_F(StudentListTest, LeavesOutWhoWasTakenOutOfTheYear) {
  school.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=2");
  EXPECT_THAT(Entries(ChooseEvaluation(1)), ElementsAre(kMarta));
}

TEST_F(StudentListTest, ATeacherSeesTheStudentsWhoOweHisSubject) {
  Expect(1, {Sql(kTaughtRegistered, {321, 2, 1, 321, 2, 1})}, {kMarta}, Teacher());
}

// Only when the session changes under the dialog does a teacher without a row in Personal come
// here: nothing is read for him.
TEST_F(StudentListTest, WithoutStaffNothingIsRead) {
  for (const auto evaluation : {1, 5})
    Expect(evaluation, {}, {}, Unrestricted(), "sesion perfil=3\n");
}

TEST_F(StudentListTest, ALockDoesNotTakeAStudentOffTheList) {
  school.Bloquea(2, 1, 3111, 3, 1);
  EXPECT_THAT(Entries(ChooseEvaluation(1)), SizeIs(2));
}

// Failing the second final itself doesn't count.
TEST_F(StudentListTest, OfTheSecondFinalHasWhoFailedTheFirst) {
  Grade(103, "3");
  Grade(107, "1,2");
  Grade(103, "1", 5);
  Expect(5, OfSecondFinal("1,2,3,4"), {kInigo});
}

TEST_F(StudentListTest, OfTheSecondFinalPutsTheKeptBeforeTheFailed) {
  Grade(103, "3");
  Keep(2, 1);
  Expect(5, OfSecondFinal("1,2,3,4") + Lines{Sql(kStudentsShown, {"1,2"})}, {kMarta, kInigo});
}

// The keys of pending subjects are compared with those of the main grade book: whoever has that
// key there is kept, on the register or not.
TEST_F(StudentListTest, OfTheSecondFinalKeepsByTheKeysOfAnotherTable) {
  Keep(3, 5);
  Expect(5, OfSecondFinal("1,2,3,4") + Lines{Sql(kStudentsShown, {"5"})}, {"Blanco Mas, Hugo=5"});
}

TEST_F(StudentListTest, OfTheSecondFinalWithNobodyFailedIsEmpty) {
  Grade(107, "1,2,3,4,5,6");
  Expect(5, OfSecondFinal("1,2,3,4"), {});
  EXPECT_FALSE(FormView(ChooseEvaluation(5)).Enabled("cboAlumno"));
}

// The evaluation is still offered for the student who has left, and nobody else has rows in it.
TEST_F(StudentListTest, OfTheSecondFinalWithoutRowsReadsNoMore) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodNumEvaluacion=5 AND CodAlumnoPte_MatDet<>5");
  Expect(5, {Sql(kPendingOfFinal, {321, 5})}, {});
}

TEST_F(StudentListTest, OfTheSecondFinalForATeacher) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103");
  Expect(5,
         {Sql(kTaughtPendingOfFinal, {321, 2, 5}), Sql(kWithPlacement, {"2"}),
          Sql(kFailed, {4, "2", 321, 4, "2", 321})},
         {kMarta}, Teacher());
}

constexpr const char* kLengua = "Lengua (1º ESO)=3111";
constexpr const char* kMates = "Matemáticas (1º ESO)=3112";
constexpr const char* kTaller = "Taller (1º ESO)=3116";

/// `cboMateria`: the pending subjects that the register of the section holds in an evaluation.
class SubjectListTest : public OwnListTest {
 protected:
  SubjectListTest() : OwnListTest(kSectionByStudent) {}

  void DropPlacement() const {
    school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4");
  }
};

// Of the final evaluations only that of order 2 is a second one: another has the work placement
// too.
TEST_F(SubjectListTest, OfAllButTheSecondFinal) {
  Expect(1, {Sql(kSubjects, {321, 3, 1, 1})}, {kLengua, kMates});
  Expect(4, {Sql(kFinalSubjects, {321, 3, 4, 4})}, {kLengua, kMates, kTaller});
  school.Evalua(1, 6);
  Expect(6, {Sql(kFinalSubjects, {321, 3, 6, 6})}, {kLengua});
}

TEST_F(SubjectListTest, ATeacherSeesTheSubjectsThatAreHis) {
  Expect(1, {Sql(kTaughtSubjects, {321, 3, 2, 1, 1})}, {kMates}, Teacher());
  Expect(4, {Sql(kTaughtFinalSubjects, {321, 3, 2, 4, 4})}, {kMates}, Teacher());
}

// A user who is no member of staff can only come here when the session changes under the dialog.
TEST_F(SubjectListTest, WithoutStaffTheStatementAsksForTeacherZero) {
  Expect(1, {Sql(kTaughtSubjects, {321, 3, 0, 1, 1})}, {}, Unrestricted(), "sesion perfil=3\n");
}

TEST_F(SubjectListTest, ALockedSubjectIsOfferedToNobody) {
  school.Bloquea(2, 1, 3111, 3, 1);
  EXPECT_THAT(Entries(ChooseEvaluation(1)), ElementsAre(kMates));
  EXPECT_THAT(Entries(ChooseEvaluation(2)), ElementsAre(kLengua))
      << "the lock holds in its own evaluation";
}

TEST_F(SubjectListTest, TheSameSubjectOfTwoCoursesStandsTwice) {
  school.Evalua(school.Pendiente(2, 3211, 3), 1);
  EXPECT_THAT(Entries(ChooseEvaluation(1)),
              UnorderedElementsAre(kLengua, kMates, "Lengua (2º ESO)=3211"));
}

// In the second final: what a student has failed in whichever final, and the work placements.
TEST_F(SubjectListTest, OfTheSecondFinalKeepsTheFailedSubjectsAndThePlacement) {
  Grade(103, "3");
  Grade(107, "1,2");
  Expect(5,
         {Sql(kFinalSubjects, {321, 3, 5, 5}), Sql(kSubjectsPassed, {"3111,3112"}),
          Sql(kSubjectsShown, {"3116,3111"})},
         {kLengua, kTaller});
}

TEST_F(SubjectListTest, OfTheSecondFinalCountsAFailureOfAnyFinal) {
  DropPlacement();
  Grade(103, "2", 5);
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), Contains(Sql(kSubjectsShown, {"3112"})));
  EXPECT_THAT(Entries(result), ElementsAre(kMates));
}

TEST_F(SubjectListTest, OfTheSecondFinalWithPlacementsAloneAsksForNoGrades) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>4");
  Expect(5, {Sql(kFinalSubjects, {321, 3, 5, 5}), Sql(kSubjectsShown, {"3116"})}, {kTaller});
}

// Nothing failed and no placement: what was read last stands, and nothing of it passes the filter.
TEST_F(SubjectListTest, OfTheSecondFinalWithoutGradesOrWithNothingFailedIsEmpty) {
  DropPlacement();
  EXPECT_THAT(Entries(ChooseEvaluation(5)), IsEmpty());
  Grade(107, "1,2,3,5,6");
  Expect(5, {Sql(kFinalSubjects, {321, 3, 5, 5}), Sql(kSubjectsPassed, {"3111,3112"})}, {});
  EXPECT_FALSE(FormView(ChooseEvaluation(5)).Enabled("cboMateria"));
}

TEST_F(SubjectListTest, OfTheSecondFinalWithEverythingLockedReadsNoMore) {
  for (const auto subject : {3111, 3112, 3116}) school.Bloquea(2, 5, subject, 3, 1);
  Expect(5, {Sql(kFinalSubjects, {321, 3, 5, 5})}, {});
}

TEST_F(SubjectListTest, OfTheSecondFinalForATeacher) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103");
  Expect(5,
         {Sql(kTaughtFinalSubjects, {321, 3, 2, 5, 5}), Sql(kSubjectsPassed, {"3112"}),
          Sql(kSubjectsShown, {"3112"})},
         {kMates}, Teacher());
}

}  // namespace
}  // namespace quorvane::test
