#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/OrdinaryStatements.h"

// The whole order of the statements of a final evaluation by the subjects of one student, from step
// one to the last DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// Step one in the second final: in place of one list, the pending subjects of the section, who
/// keeps a work placement, and who failed the first.
Lines StepOneSecondFinal(const Role& role, const std::string& pendings) {
  const std::string active = "Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL)";
  const auto failed =
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS "
      "Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN "
      "(Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON "
      "Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON "
      "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON "
      "Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion=4 AND "
      "CodAlumnoPte_MatDet IN (" +
      pendings + ") AND Nota.Aprobado=0 AND " + active + " AND Seccion_AlumnoPte.codSeccion=321 ";
  const std::string own =
      role.section ? ""
                   : " AND AlumnoPte_MatDet.codMatDet IN (SELECT codmatdet FROM profesor_Pte WHERE "
                     "CodProfesor=" +
                         std::to_string(role.gIDPersonal) + ")";
  const Lines lists = {
      Sql("SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1", {role.True()}),
      Sql("SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN "
          "(AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
          "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON "
          "Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON "
          "Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE " +
          active + " AND Seccion_AlumnoPte.codSeccion=321" + own + " AND codNumEvaluacion=5 "),
      Sql("SELECT codAlumno FROM TipoMateria INNER JOIN (MateriaDetalles INNER JOIN "
          "Alumno_MateriaDetalles ON MateriaDetalles.IDMateriaDetalles = "
          "Alumno_MateriaDetalles.codMateriaDetalles) ON "
          "MateriaDetalles.codTipoMateria=TipoMateria.IDTipoMateria WHERE IDAlumno_MateriaDetalles "
          "in(" +
          pendings + ") AND codEspecificarTipoMateria=4"),
      Sql(failed + " UNION " + failed)};
  auto lines = StepOneSectionBySubject(role, 5);
  const auto list = lines.erase(lines.end() - 3);
  lines.insert(list, lists.begin(), lists.end());
  return lines;
}

class FinalSectionBySubjectOrder : public ::testing::TestWithParam<bool> {
 protected:
  FinalSectionBySubjectOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  /// Opens on student 1, grades the first subject, goes on to the last, gives it an observation,
  /// saves, and leaves step one.
  Lines Session(const Role& role, int evaluacion = 4) const {
    return Traffic(RunScript(school_,
                             OpenSectionBySubject(evaluacion) +
                                 "editar rtvNotasAlumno 1 1 \"7\"\n"
                                 "pulsar cmdSiguiente\n"
                                 "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                 "pulsar cmdAceptar\n"
                                 "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  FinalSchool school_;
};

/// The start of an edit: whoever sees the section has the observation rebuilt first.
Lines Edit(const Role& role, int evaluacion, int matDet, int teacher, int column) {
  return (role.section ? FinalObservation(role, evaluacion, false) : Lines{}) +
         Lines{FinalCellListOfSubject(role, evaluacion, matDet, teacher, column)};
}

Lines WholeSection(const Role& role) {
  return FinalFormLoadOf(role, 4, 1) + Lines{FinalCourse()} +
         FinalLoad(role, 4, 1, {{1, 3111, 1}, {2, 3112, 2}}) + FinalSubjectGrid(role, true, {{1}}) +
         TakenLocks(role, 4, {3111, 3112}) + Edit(role, 4, 3111, 2, 1) +
         FinalSubjectGrid(role, false, {{1}}) + Edit(role, 4, 3112, 0, 5) +
         SaveFinalGraded(role, 4, 1, 107) + SaveFinalUngraded(role, 4, 2, 202) + Leave(role, 1);
}

TEST_P(FinalSectionBySubjectOrder, UnrestrictedUserGradesTheStudent) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role),
              ElementsAreArray(StepOneSectionBySubject(role, 4) + WholeSection(role)));
}

TEST_P(FinalSectionBySubjectOrder, TutorGradesTheStudent) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role),
              ElementsAreArray(StepOneSectionBySubject(role, 4) + WholeSection(role)));
}

// He has one subject of this student, and no observation is rebuilt for him.
TEST_P(FinalSectionBySubjectOrder, TeacherGradesHisOwnSubjectsOfTheStudent) {
  const auto role = As(kTeacher);
  EXPECT_THAT(Session(role),
              ElementsAreArray(StepOneSectionBySubject(role, 4) + FinalFormLoadOf(role, 4, 1) +
                               Lines{FinalCourse()} + FinalLoad(role, 4, 1, {{2, 3112, 2}}) +
                               FinalSubjectGrid(role, true, {{1}}) + TakenLocks(role, 4, {3112}) +
                               Edit(role, 4, 3112, 0, 1) + Edit(role, 4, 3112, 0, 5) +
                               SaveFinalGraded(role, 4, 2, 107, 202) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed. The student is
// found all the same, but none of his subjects.
TEST_P(FinalSectionBySubjectOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  auto unrestricted = As(kUnrestricted);
  auto stepOne = StepOneSectionBySubject(unrestricted, 4);
  *(stepOne.end() - 2) = *(StepOneSectionBySubject(role, 4).end() - 2);
  const auto result = RunScript(
      school_,
      OpenSectionBySubject(4, 1, "sesion usuario=4 perfil=3\n") + "pulsar cmdNotaManual1(1)\n",
      SessionOf(unrestricted));
  EXPECT_THAT(Traffic(result), ElementsAreArray(stepOne + FinalFormLoadOf(role, 4, 1) +
                                                Lines{FinalCourse()} + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"No existen alumnos o materias para "
                          "introducir notas\""));
}

// Student 1 passed 3111 in the first final and failed 3112.
TEST_P(FinalSectionBySubjectOrder, SecondFinalAsksWhatTheFirstPassed) {
  const auto role = As(kTutor);
  school_.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=CASE CodAlumnoPte_MatDet WHEN 1 THEN 105 ELSE 103 END "
      "WHERE CodNumEvaluacion=4");
  EXPECT_THAT(Session(role, 5),
              ElementsAreArray(StepOneSecondFinal(role, "1,2,3,4") + FirstFinal(role) +
                               FinalFormLoadOf(role, 5, 1) +
                               Lines{FinalCourse(), FinalRows(role, 5, 1), KindOf(3111),
                                     PassedFirst(1), KindOf(3112), PassedFirst(2)} +
                               FinalGrades(5, {2, 3112, 2}) + FinalSubjectGrid(role, true, {{1}}) +
                               TakenLocks(role, 5, {3112}) + Edit(role, 5, 3112, 0, 1) +
                               Edit(role, 5, 3112, 0, 5) + SaveFinalGraded(role, 5, 2, 107, 202) +
                               Leave(role, 1)));
}

TEST_P(FinalSectionBySubjectOrder, TeacherInTheSecondFinal) {
  const auto role = As(kTeacher);
  school_.Sql("UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4");
  EXPECT_THAT(
      Session(role, 5),
      ElementsAreArray(
          StepOneSecondFinal(role, "2,4") + FirstFinal(role) + FinalFormLoadOf(role, 5, 1) +
          Lines{FinalCourse(), FinalRows(role, 5, 1), KindOf(3112), PassedFirst(2)} +
          FinalGrades(5, {2, 3112, 2}) + FinalSubjectGrid(role, true, {{1}}) +
          TakenLocks(role, 5, {3112}) + Edit(role, 5, 3112, 0, 1) + Edit(role, 5, 3112, 0, 5) +
          SaveFinalGraded(role, 5, 2, 107, 202) + Leave(role, 1)));
}

INSTANTIATE_TEST_SUITE_P(Engines, FinalSectionBySubjectOrder, ::testing::Bool(),
                         [](const auto& engine) {
                           return engine.param ? "SqlServer" : "FileDatabase";
                         });

}  // namespace
}  // namespace quorvane::test
