#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"

// The whole order of the statements of a session by section and subject, from step one to the last
// DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAreArray;

/// The subjects that step one offers in a final evaluation.
std::string Subjects(const Role& role, int evaluacion) {
  const std::string joins =
      " AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion";
  const std::string systems =
      " AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
      "SistemaCalificacion.CodTipoEnsenanza=3";
  auto text = Sql(
      "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
      "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
      "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
      "SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria "
      "AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND "
      "Seccion_AlumnoPte.CodSeccion = 321 AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
      "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
      "TipoMateria.CodEspecificarTipoMateria IN(1,4)");
  if (role.section)
    text += joins + systems;
  else
    text += systems + joins +
            " AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT codMatdet FROM Profesor_Pte WHERE "
            "CodProfesor=" +
            std::to_string(role.gIDPersonal) + ")";
  const auto evaluation = std::to_string(evaluacion);
  return text + " AND EvaluacionActaPte.codnumEvaluacion=" + evaluation +
         " AND EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
         "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
         "CodNumEvaluacion=" +
         evaluation + ")";
}

/// The step one of entry by student, with what this one asks more: whether the user is the tutor
/// of the section, and the subjects in place of the kind of evaluation.
Lines SectionStepOne(const Role& role, int evaluacion) {
  auto lines = StepOne(role, evaluacion);
  const auto chosen = lines.end() - 3;
  *chosen = lines.back();
  lines.insert(chosen + 1, Subjects(role, evaluacion));
  lines.insert(lines.end() - 5, FinalFormLoad(role, evaluacion)[1]);
  return lines;
}

class FinalSectionByStudentOrder : public ::testing::TestWithParam<bool> {
 protected:
  FinalSectionByStudentOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  Lines Session(const Role& role, int matDet, int evaluacion = 4) const {
    return Traffic(RunScript(school_,
                             OpenSectionFinal(evaluacion, matDet) +
                                 "editar rtvNotasAlumno 1 1 \"7\"\n"
                                 "pulsar cmdSiguiente\n"
                                 "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                 "pulsar cmdAceptar\n"
                                 "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  FinalSchool school_;
};

Lines Student(const Role& role, bool first, std::initializer_list<long> grades) {
  return FinalGrid(role, first, grades) + FinalObservation(role, 4);
}

// Subject 3111, which person 2 teaches: here the lists take him.
Lines WholeSection(const Role& role) {
  return FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {}, 3111) +
         FinalLoad(role, 4, 1, {{1, 3111, 1}}, 3111) + FinalLoad(role, 4, 2, {{3, 3111, 1}}, 3111) +
         StudentNames({1, 2}) + Student(role, true, {0, 0, 0}) + TakenLocks(role, 4, {3111}) +
         Lines{FinalCellList(role, 4, 3111, 2, 1)} + Student(role, false, {0, 0, 0}) +
         Lines{FinalCellList(role, 4, 3111, 2, 5)} + SaveFinalGraded(role, 4, 1, 107) +
         SaveFinalUngraded(role, 4, 3, 202) + Leave(role, 1);
}

TEST_P(FinalSectionByStudentOrder, UnrestrictedUserGradesTheSubject) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role, 3111), ElementsAreArray(SectionStepOne(role, 4) + WholeSection(role)));
}

TEST_P(FinalSectionByStudentOrder, TutorGradesTheSubject) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role, 3111), ElementsAreArray(SectionStepOne(role, 4) + WholeSection(role)));
}

// He has chosen 3113, which student 1 doesn't have: he gets his other subject of that student too,
// and his save writes it.
TEST_P(FinalSectionByStudentOrder, TeacherGradesAllHisSubjectsOfTheStudents) {
  const auto role = As(kTeacher);
  EXPECT_THAT(
      Session(role, 3113),
      ElementsAreArray(
          SectionStepOne(role, 4) + FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
          FinalLoad(role, 4, 1, {{2, 3112, 2}}) + StudentNames({3, 1}) +
          Student(role, true, {0, 0, 0}) + TakenLocks(role, 4, {3113, 3112}) +
          Lines{FinalCellList(role, 4, 3113, 0, 1)} + Student(role, false, {0, 0, 0}) +
          Lines{FinalCellList(role, 4, 3112, 0, 5)} + SaveFinalGraded(role, 4, 4, 107) +
          SaveFinalUngraded(role, 4, 2, 202) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed.
TEST_P(FinalSectionByStudentOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  auto unrestricted = As(kUnrestricted);
  unrestricted.user = 4;
  auto script = OpenSectionFinal();
  script.insert(script.rfind("pulsar"), "sesion usuario=4 perfil=3\n");
  const auto result =
      RunScript(school_, script + "pulsar cmdNotaManual1(1)\n", SessionOf(As(kUnrestricted)));
  auto stepOne = SectionStepOne(unrestricted, 4);
  *(stepOne.end() - 6) = FinalFormLoad(As(kUnrestricted), 4)[1];
  EXPECT_THAT(Traffic(result), ElementsAreArray(stepOne + FinalFormLoad(role, 4) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAreArray({"informacion \"Zendria Escuela\" \"No existen materias o alumnos "
                                "para poner notas\""}));
}

INSTANTIATE_TEST_SUITE_P(Engines, FinalSectionByStudentOrder, ::testing::Bool(),
                         [](const auto& engine) {
                           return engine.param ? "SqlServer" : "FileDatabase";
                         });

}  // namespace
}  // namespace quorvane::test
