#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/OrdinaryStatements.h"

// The whole order of the statements of a final evaluation by subject, from step one to the last
// DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class FinalBySubjectOrder : public ::testing::TestWithParam<bool> {
 protected:
  FinalBySubjectOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  /// Opens, grades the first student of the first subject and the last of the second, saves, and
  /// leaves step one.
  Lines Session(const Role& role, int lastRow, int evaluacion = 4) const {
    return Traffic(RunScript(school_,
                             OpenBySubject(evaluacion) +
                                 "editar rtvNotasAlumno 1 1 \"7\"\n"
                                 "pulsar cmdSiguiente\n"
                                 "editar rtvNotasAlumno " +
                                 std::to_string(lastRow) +
                                 " 5 \"Mejora\"\n"
                                 "pulsar cmdAceptar\n"
                                 "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  FinalSchool school_;
};

// Subject 3113 of student 3, then 3111 of students 1 and 2, which person 2 taught. What is saved
// goes by students.
Lines WholeSection(const Role& role) {
  return FinalFormLoad(role, 4) + Lines{FinalCourse()} + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{1, 3111, 1}, {2, 3112, 2}}) +
         FinalLoad(role, 4, 2, {{3, 3111, 1}}) + FinalSubjectGrid(role, true, {{3}}) +
         TakenLocks(role, 4, {3113, 3111, 3112}) +
         Lines{FinalCellListOfSubject(role, 4, 3113, 0, 1)} +
         FinalSubjectGrid(role, false, {{1}, {2}}) +
         Lines{FinalCellListOfSubject(role, 4, 3111, 2, 5)} + SaveFinalGraded(role, 4, 4, 107) +
         SaveFinalUngraded(role, 4, 1) + SaveFinalUngraded(role, 4, 2) +
         SaveFinalUngraded(role, 4, 3, 202) + Leave(role, 1);
}

TEST_P(FinalBySubjectOrder, UnrestrictedUserGradesTheWholeSection) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role, 2), ElementsAreArray(StepOneBySubject(role, 4) + WholeSection(role)));
}

TEST_P(FinalBySubjectOrder, TutorGradesTheWholeSection) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role, 2), ElementsAreArray(StepOneBySubject(role, 4) + WholeSection(role)));
}

TEST_P(FinalBySubjectOrder, TeacherGradesHisOwnSubjects) {
  const auto role = As(kTeacher);
  EXPECT_THAT(
      Session(role, 1),
      ElementsAreArray(
          StepOneBySubject(role, 4) + FinalFormLoad(role, 4) + Lines{FinalCourse()} +
          FinalLoad(role, 4, 3, {{4, 3113, 3}}) + FinalLoad(role, 4, 1, {{2, 3112, 2}}) +
          FinalSubjectGrid(role, true, {{3}}) + TakenLocks(role, 4, {3113, 3112}) +
          Lines{FinalCellListOfSubject(role, 4, 3113, 0, 1)} +
          FinalSubjectGrid(role, false, {{1}}) +
          Lines{FinalCellListOfSubject(role, 4, 3112, 0, 5)} + SaveFinalGraded(role, 4, 4, 107) +
          SaveFinalUngraded(role, 4, 2, 202) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed. The course is
// read all the same.
TEST_P(FinalBySubjectOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  auto unrestricted = As(kUnrestricted);
  auto stepOne = StepOneBySubject(unrestricted, 4);
  *(stepOne.end() - 2) = *(StepOneBySubject(role, 4).end() - 2);
  const auto result = RunScript(
      school_, OpenBySubject(4, "sesion usuario=4 perfil=3\n") + "pulsar cmdNotaManual1(1)\n",
      SessionOf(unrestricted));
  EXPECT_THAT(Traffic(result), ElementsAreArray(stepOne + FinalFormLoad(role, 4) +
                                                Lines{FinalCourse()} + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"No existen alumno o materias para "
                          "poner notas\""));
}

// In the second final, of what the first graded: pending 4 failed, 1 passed, 2 failed, 3 has none.
TEST_P(FinalBySubjectOrder, SecondFinalAsksWhatTheFirstPassed) {
  const auto role = As(kTutor);
  school_.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=CASE CodAlumnoPte_MatDet WHEN 1 THEN 105 WHEN 3 THEN 0 "
      "ELSE 103 END WHERE CodNumEvaluacion=4");
  EXPECT_THAT(
      Session(role, 1, 5),
      ElementsAreArray(
          StepOneBySubject(role, 5) + FirstFinal(role) + FinalFormLoad(role, 5) +
          Lines{FinalCourse(), FinalRows(role, 5, 3), KindOf(3113), PassedFirst(4)} +
          FinalGrades(5, {4, 3113, 3}) +
          Lines{FinalRows(role, 5, 1), KindOf(3111), PassedFirst(1), KindOf(3112), PassedFirst(2)} +
          FinalGrades(5, {2, 3112, 2}) +
          Lines{FinalRows(role, 5, 2), KindOf(3111), PassedFirst(3)} +
          FinalSubjectGrid(role, true, {{3}}) + TakenLocks(role, 5, {3113, 3112}) +
          Lines{FinalCellListOfSubject(role, 5, 3113, 0, 1)} +
          FinalSubjectGrid(role, false, {{1}}) +
          Lines{FinalCellListOfSubject(role, 5, 3112, 0, 5)} + SaveFinalGraded(role, 5, 4, 107) +
          SaveFinalUngraded(role, 5, 2, 202) +
          Lines{Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE IDEvaluacionActaPte=2")} +
          Leave(role, 1)));
}

INSTANTIATE_TEST_SUITE_P(Engines, FinalBySubjectOrder, ::testing::Bool(), [](const auto& engine) {
  return engine.param ? "SqlServer" : "FileDatabase";
});

}  // namespace
}  // namespace quorvane::test
