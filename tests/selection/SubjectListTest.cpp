#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

const std::string kWhole =
    "centro SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
    "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
    "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
    "SistemaCalificacion,EvaluacionPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND "
    "Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} "
    "AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
    "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
    "TipoMateria.CodEspecificarTipoMateria IN(1) AND curso.IDCurso=Seccion.codcurso AND "
    "seccion.idseccion=MateriaDetalles.codseccion AND "
    "TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
    "SistemaCalificacion.CodTipoEnsenanza={} AND EvaluacionPte.codnumEvaluacion={} AND "
    "EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
    "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
    "CodNumEvaluacion={})";
const std::string kWholeFinal =
    "centro SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
    "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
    "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
    "SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND "
    "Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} "
    "AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
    "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
    "TipoMateria.CodEspecificarTipoMateria IN(1,4) AND curso.IDCurso=Seccion.codcurso AND "
    "seccion.idseccion=MateriaDetalles.codseccion AND "
    "TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
    "SistemaCalificacion.CodTipoEnsenanza={} AND EvaluacionActaPte.codnumEvaluacion={} AND "
    "EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
    "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
    "CodNumEvaluacion={})";
const std::string kTaught =
    "centro SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
    "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
    "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
    "SistemaCalificacion,EvaluacionPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND "
    "Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} "
    "AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
    "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
    "TipoMateria.CodEspecificarTipoMateria IN(1) AND "
    "TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
    "SistemaCalificacion.CodTipoEnsenanza={} AND curso.IDCurso=Seccion.codcurso AND "
    "seccion.idseccion=MateriaDetalles.codseccion AND  MateriaDetalles.IDMateriaDEtalles IN "
    "(SELECT codMatdet FROM Profesor_Pte WHERE CodProfesor={}) AND "
    "EvaluacionPte.codnumEvaluacion={} AND "
    "EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
    "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
    "CodNumEvaluacion={})";
const std::string kTaughtFinal =
    "centro SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
    "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
    "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
    "SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND "
    "Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} "
    "AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
    "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
    "TipoMateria.CodEspecificarTipoMateria IN(1,4) AND "
    "TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
    "SistemaCalificacion.CodTipoEnsenanza={} AND curso.IDCurso=Seccion.codcurso AND "
    "seccion.idseccion=MateriaDetalles.codseccion AND  MateriaDetalles.IDMateriaDEtalles IN "
    "(SELECT codMatdet FROM Profesor_Pte WHERE CodProfesor={}) AND "
    "EvaluacionActaPte.codnumEvaluacion={} AND "
    "EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
    "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
    "CodNumEvaluacion={})";
const std::string kPassed =
    "centro SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Nota.Aprobado, "
    "curso.Descripcion  FROM Materia INNER JOIN ((MateriaDetalles INNER JOIN (AlumnoPte_MatDet "
    "INNER JOIN (EvaluacionActaPte INNER JOIN Nota ON EvaluacionActaPte.codNota=Nota.IDNota) ON "
    "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON "
    "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) INNER JOIN (Seccion INNER JOIN "
    "Curso ON Curso.IDCurso=Seccion.codcurso) ON Seccion.IDseccion=MateriaDetalles.codSeccion) ON "
    "Materia.IDMateria = MateriaDetalles.codMateria WHERE MateriaDetalles.IDMateriaDetalles IN(";
const std::string kPassedEnd = ") ORDER BY IDMateriaDetalles";
const std::string kShown =
    "centro SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, curso.Descripcion  "
    "FROM curso, Seccion, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion WHERE "
    "Materia.IDMateria=MateriaDetalles.CodMateria AND "
    "TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND TipoMateria.CodEspecificarTipoMateria "
    "IN(1,4) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
    "SistemaCalificacion.CodTipoEnsenanza=3 AND Curso.IDCurso=seccion.codcurso AND "
    "Seccion.IDSeccion=MateriaDetalles.codseccion  AND MateriaDetalles.IDMateriaDetalles IN (";

/// `cboMateria`: the pending subjects that the register of the section holds in an evaluation.
class SubjectList : public ::testing::Test {
 protected:
  [[nodiscard]] ScriptResult ChooseEvaluation(int evaluation,
                                              const ScriptOptions& options = Unrestricted()) {
    command = "elegir cboEvaluaciones =" + std::to_string(evaluation);
    return Play(school, kSectionByStudent,
                "elegir cboCursos =32\nelegir cboSecciones =321\n" + command + "\nver", options);
  }
  [[nodiscard]] std::vector<std::string> Read(const ScriptResult& result) const {
    return Statements(result.After(command));
  }
  [[nodiscard]] static std::vector<std::string> Subjects(const ScriptResult& result) {
    return View(result).Entries("cboMateria");
  }

  PendingSchool school;
  std::string command;
};

TEST_F(SubjectList, OfAnOrdinaryEvaluation) {
  const auto result = ChooseEvaluation(1);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kWhole, {321, 3, 1, 1})))
      << result.Text();
  EXPECT_THAT(Subjects(result),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Matemáticas (1º ESO)=3112"));
}

TEST_F(SubjectList, OfTheFirstFinalHasTheWorkPlacementToo) {
  const auto result = ChooseEvaluation(4);
  EXPECT_THAT(Read(result),
              ElementsAre(Fill(kFinalAndOrder, {4}), Fill(kWholeFinal, {321, 3, 4, 4})));
  EXPECT_THAT(Subjects(result),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Matemáticas (1º ESO)=3112",
                                   "Taller (1º ESO)=3116"));
}

// Of the final evaluations only that of order 2 is a second one.
TEST_F(SubjectList, OfAFinalOfAHigherOrderTakesThePlainPath) {
  school.Evalua(1, 6);
  const auto result = ChooseEvaluation(6);
  EXPECT_THAT(Read(result),
              ElementsAre(Fill(kFinalAndOrder, {6}), Fill(kWholeFinal, {321, 3, 6, 6})));
  EXPECT_THAT(Subjects(result), ElementsAre("Lengua (1º ESO)=3111"));
}

TEST_F(SubjectList, TheTutorSeesTheWholeSection) {
  EXPECT_THAT(Read(ChooseEvaluation(1, Tutor())),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kWhole, {321, 3, 1, 1})));
}

TEST_F(SubjectList, ATeacherSeesTheSubjectsThatAreHis) {
  const auto result = ChooseEvaluation(1, Teacher());
  EXPECT_THAT(Read(result),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kTaught, {321, 3, 2, 1, 1})));
  EXPECT_THAT(Subjects(result), ElementsAre("Matemáticas (1º ESO)=3112"));
  const auto last = ChooseEvaluation(4, Teacher());
  EXPECT_THAT(Read(last),
              ElementsAre(Fill(kFinalAndOrder, {4}), Fill(kTaughtFinal, {321, 3, 2, 4, 4})));
  EXPECT_THAT(Subjects(last), ElementsAre("Matemáticas (1º ESO)=3112"));
}

// A user who is no member of staff can only come here when the session changes under the dialog.
TEST_F(SubjectList, WithoutStaffTheStatementAsksForTeacherZero) {
  const std::string choice = "elegir cboEvaluaciones =1";
  const auto result =
      Play(school, kSectionByStudent,
           "elegir cboCursos =32\nsesion perfil=3\nelegir cboSecciones =321\n" + choice + "\nver");
  EXPECT_THAT(Statements(result.After(choice)),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kTaught, {321, 3, 0, 1, 1})));
  EXPECT_THAT(Subjects(result), IsEmpty());
}

TEST_F(SubjectList, AProfileBelowZeroSeesTheWholeSection) {
  const std::string choice = "elegir cboEvaluaciones =1";
  const auto result =
      Play(school, kSectionByStudent,
           "elegir cboCursos =32\nsesion perfil=-1\nelegir cboSecciones =321\n" + choice);
  EXPECT_THAT(Statements(result.After(choice)),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kWhole, {321, 3, 1, 1})));
}

TEST_F(SubjectList, ALockedSubjectIsOfferedToNobody) {
  school.Bloquea(2, 1, 3111, 3, 1);
  EXPECT_THAT(Subjects(ChooseEvaluation(1)), ElementsAre("Matemáticas (1º ESO)=3112"));
  EXPECT_THAT(Subjects(ChooseEvaluation(2)), ElementsAre("Lengua (1º ESO)=3111"))
      << "the lock holds in its own evaluation";
}

TEST_F(SubjectList, TheSameSubjectOfTwoCoursesStandsTwice) {
  const auto pending = school.Pendiente(2, 3211, 3);
  school.Evalua(pending, 1);
  EXPECT_THAT(Subjects(ChooseEvaluation(1)),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Matemáticas (1º ESO)=3112",
                                   "Lengua (2º ESO)=3211"));
}

// In the second final: what a student has failed in whichever final, and the work placements.
TEST_F(SubjectList, OfTheSecondFinalKeepsTheFailedSubjectsAndThePlacement) {
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=107 WHERE CodAlumnoPte_MatDet IN (1,2) AND "
      "CodNumEvaluacion=4");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kWholeFinal, {321, 3, 5, 5}),
                                        kPassed + "3111,3112" + kPassedEnd, kShown + "3116,3111)"))
      << result.Text();
  EXPECT_THAT(Subjects(result),
              UnorderedElementsAre("Lengua (1º ESO)=3111", "Taller (1º ESO)=3116"));
}

TEST_F(SubjectList, OfTheSecondFinalCountsAFailureOfAnyFinal) {
  school.Sql(
      "DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4;"
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=5");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ::testing::Contains(kShown + "3112)"));
  EXPECT_THAT(Subjects(result), ElementsAre("Matemáticas (1º ESO)=3112"));
}

TEST_F(SubjectList, OfTheSecondFinalWithPlacementsAloneAsksForNoGrades) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>4");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kWholeFinal, {321, 3, 5, 5}), kShown + "3116)"));
  EXPECT_THAT(Subjects(result), ElementsAre("Taller (1º ESO)=3116"));
}

// Nothing failed and no placement: what was read last stands, and nothing of it passes the filter.
TEST_F(SubjectList, OfTheSecondFinalWithNothingFailedIsEmpty) {
  school.Sql(
      "DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4;"
      "UPDATE EvaluacionActaPte SET CodNota=107 WHERE CodNumEvaluacion=4");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result),
              ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                          Fill(kWholeFinal, {321, 3, 5, 5}), kPassed + "3111,3112" + kPassedEnd));
  EXPECT_THAT(Subjects(result), IsEmpty());
  EXPECT_FALSE(View(result).Enabled("cboMateria"));
  EXPECT_FALSE(View(result).Enabled("cmdNotaManual1(0)"));
}

TEST_F(SubjectList, OfTheSecondFinalWithoutGradesIsEmpty) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=4");
  EXPECT_THAT(Subjects(ChooseEvaluation(5)), IsEmpty());
}

TEST_F(SubjectList, OfTheSecondFinalWithEverythingLockedReadsNoMore) {
  for (const auto subject : {3111, 3112, 3116}) school.Bloquea(2, 5, subject, 3, 1);
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kWholeFinal, {321, 3, 5, 5})));
  EXPECT_THAT(Subjects(result), IsEmpty());
}

TEST_F(SubjectList, OfTheSecondFinalForATeacher) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103");
  const auto result = ChooseEvaluation(5, Teacher());
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kTaughtFinal, {321, 3, 2, 5, 5}),
                                        kPassed + "3112" + kPassedEnd, kShown + "3112)"));
}

TEST_F(SubjectList, OnSqlServerTrueIsWrittenOne) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  EXPECT_THAT(Read(ChooseEvaluation(5, options)),
              ::testing::Contains(Fill(kFirstFinalOfList, {1})));
}

}  // namespace
}  // namespace quorvane::test
