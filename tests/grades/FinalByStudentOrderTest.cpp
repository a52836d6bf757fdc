#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"

// The whole order of the statements of a session by student, from step one to the last DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAreArray;

class FinalByStudentOrder : public ::testing::TestWithParam<bool> {
 protected:
  FinalByStudentOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  /// Opens, grades a cell of the first student and one of the second, saves, and leaves step one.
  Lines Session(const Role& role, int evaluacion = 4) const {
    return Traffic(RunScript(school_,
                             OpenFinal(evaluacion) + "editar rtvNotasAlumno 1 1 \"7\"\n"
                                                     "pulsar cmdSiguiente\n"
                                                     "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                                     "pulsar cmdAceptar\n"
                                                     "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  FinalSchool school_;
};

// The teachers of the subjects are read and not taken: the lists compare with 0.
Lines WholeSection(const Role& role) {
  return FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{1, 3111, 1}, {2, 3112, 2}}) +
         FinalLoad(role, 4, 2, {{3, 3111, 1}}) + StudentNames({3, 1, 2}) +
         FinalGrid(role, true, {0, 0, 0}) + TakenLocks(role, 4, {3113, 3111, 3112}) +
         Lines{FinalCellList(role, 4, 4, 0, 1)} + FinalGrid(role, false, {0, 0, 0, 0, 0, 0}) +
         Lines{FinalCellList(role, 4, 1, 0, 5)} + SaveFinalGraded(role, 4, 4, 107) +
         SaveFinalUngraded(role, 4, 1, 202) + SaveFinalUngraded(role, 4, 2) +
         SaveFinalUngraded(role, 4, 3) + Leave(role, 1);
}

TEST_P(FinalByStudentOrder, UnrestrictedUserGradesTheWholeSection) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role), ElementsAreArray(StepOne(role, 4) + WholeSection(role)));
}

TEST_P(FinalByStudentOrder, TutorGradesTheWholeSection) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role), ElementsAreArray(StepOne(role, 4) + WholeSection(role)));
}

TEST_P(FinalByStudentOrder, TeacherGradesHisOwnSubjects) {
  const auto role = As(kTeacher);
  EXPECT_THAT(
      Session(role),
      ElementsAreArray(StepOne(role, 4) + FinalFormLoad(role, 4) +
                       FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
                       FinalLoad(role, 4, 1, {{2, 3112, 2}}) + StudentNames({3, 1}) +
                       FinalGrid(role, true, {0, 0, 0}) + TakenLocks(role, 4, {3113, 3112}) +
                       Lines{FinalCellList(role, 4, 4, 0, 1)} + FinalGrid(role, false, {0, 0, 0}) +
                       Lines{FinalCellList(role, 4, 2, 0, 5)} + SaveFinalGraded(role, 4, 4, 107) +
                       SaveFinalUngraded(role, 4, 2, 202) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed: the only way
// to get this far.
TEST_P(FinalByStudentOrder, TeacherWithoutGIDPersonalGetsAnEmptyListAndTheMessage) {
  const auto role = As(kNoStaff);
  auto unrestricted = As(kUnrestricted);
  unrestricted.user = 4;
  const auto result = RunScript(school_,
                                "nodo 124\n"
                                "elegir cboCursos =32\n"
                                "elegir cboSecciones =321\n"
                                "elegir cboEvaluaciones =4\n"
                                "sesion usuario=4 perfil=3\n"
                                "pulsar cmdNotaManual1(0)\n"
                                "pulsar cmdNotaManual1(1)\n",
                                SessionOf(As(kUnrestricted)));
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOne(unrestricted, 4) + FinalFormLoad(role, 4) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAreArray({"informacion \"Zendria Escuela\" \"No se han encontrado alumnos o "
                                "materias para introducir notas\""}));
}

// In the second final, of what the first graded: pending 4 failed, 1 passed, 2 failed, 3 has none.
TEST_P(FinalByStudentOrder, SecondFinalAsksWhatTheFirstPassed) {
  const auto role = As(kTutor);
  school_.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=CASE CodAlumnoPte_MatDet WHEN 1 THEN 105 WHEN 3 THEN 0 "
      "ELSE 103 END WHERE CodNumEvaluacion=4");
  EXPECT_THAT(
      Session(role, 5),
      ElementsAreArray(
          StepOne(role, 5) + FirstFinal(role) + FinalFormLoad(role, 5) +
          Lines{FinalRows(role, 5, 3), KindOf(3113), PassedFirst(4)} +
          FinalGrades(5, {4, 3113, 3}) +
          Lines{FinalRows(role, 5, 1), KindOf(3111), PassedFirst(1), KindOf(3112), PassedFirst(2)} +
          FinalGrades(5, {2, 3112, 2}) +
          Lines{FinalRows(role, 5, 2), KindOf(3111), PassedFirst(3)} + StudentNames({3, 1}) +
          FinalGrid(role, true, {0, 0, 0}) + TakenLocks(role, 5, {3113, 3112}) +
          Lines{FinalCellList(role, 5, 4, 0, 1)} + FinalGrid(role, false, {0, 0, 0}) +
          Lines{FinalCellList(role, 5, 2, 0, 5)} + SaveFinalGraded(role, 5, 4, 107) +
          SaveFinalUngraded(role, 5, 2, 202) +
          Lines{Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE IDEvaluacionActaPte=2")} +
          Leave(role, 1)));
}

INSTANTIATE_TEST_SUITE_P(Engines, FinalByStudentOrder, ::testing::Bool(), [](const auto& engine) {
  return engine.param ? "SqlServer" : "FileDatabase";
});

}  // namespace
}  // namespace quorvane::test
