#include <gmock/gmock.h>

#include "tests/grades/OrdinaryDirect.h"

// The routines without a caller, on objectives in the host's grade book, of the forms by subject
// and of a section.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string Objectives(const std::string& columns) {
  return Sql("SELECT " + columns +
             " FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion=1 AND CodAlumno=1 AND "
             "CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT "
             "IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria=1)) ORDER BY CodAlumno, "
             "CodMateriaDetallesAsociada, Orden");
}

std::string ObjectiveGrades(int id, bool recovery) {
  return Sql("SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, "
             "CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, "
             "CodNotaConceptoR, CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE "
             "CodNumEvaluacion=1") +
         (recovery ? " AND (Recuperacion=2 OR Recuperacion=3)" : "") +
         " AND CodAlumno_MateriaDetalles=" + std::to_string(id);
}

const std::string kTwoObjectives =
    "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3114,3111,1,1,-1,0), "
    "(52,1,3114,3111,1,2,-1,0), (53,1,3113,3111,1,3,-1,0), (54,1,3114,0,1,4,-1,0)";

TEST_F(NotaMateriaDirect, ObjectivesAreReadWithAllColumns) {
  school_.Sql(kTwoObjectives);
  Form().CargarObjetivos(1, 1);
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Objectives("*"), ObjectiveGrades(51, false), ObjectiveGrades(53, false)));
}

TEST_F(NotaSeccionAlumnoDirect, ObjectivesAreReadByTheNamesOfTheColumns) {
  school_.Sql(kTwoObjectives);
  PasoUno().blnRecuperar = true;
  Form().CargarObjetivos(1, 1);
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Objectives("IDAlumno_MateriaDetalles, CodMateriaDetalles, "
                                     "CodMateriaDetallesAsociada, Orden"),
                          ObjectiveGrades(51, true), ObjectiveGrades(53, true)));
}

TEST_F(NotaSeccionMateriaDirect, ObjectivesAreReadAndNothingMore) {
  school_.Sql(kTwoObjectives);
  Form().CargarObjetivos(1, 1);
  EXPECT_THAT(session_.Statements(), ElementsAre(Objectives("*")));
}

// Subject 1 "Lengua" and its objective 4 "Lectura" as taught in section 321.
const std::string kObjective =
    "INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, CodPersonal, "
    "CodPersonalAsociado, CodTipoMateria) VALUES (3214,4,321,0,0,10);"
    "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3214,3211,1,6,-1,0)";
const std::string kObjectiveInTwo =
    "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0);"
    "INSERT INTO Evaluacion VALUES (1,60,2,0,0,0,0,0,0,0,0,0,0,0,0,0)";

std::string Later(const std::string& columns) {
  return Sql("SELECT " + columns +
             " FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE "
             "IDNumEvaluacion=1) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM "
             "Seccion_NumEvaluacion WHERE CodSeccion=321) ORDER BY Orden");
}

std::string Detail(int subject) {
  return Sql("SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={} AND CodSeccion=321",
             {subject});
}

std::string OrderIn(int evaluacion) {
  return Sql(
      "SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion={} AND "
      "CodMateriaDetalles=3214",
      {evaluacion});
}

/// What adding runs, up to the grades of the objective. Keys come under the name IDMax.
Lines AddsUpToTheGrades() {
  return {Later("IDNumEvaluacion, Orden"),
          Sql("SELECT CodAlumno FROM Alumno_NumEvaluacion WHERE CodAlumno=1 AND "
              "CodNumEvaluacion=2"),
          Sql("SELECT MAX(IDAlumno_NumEvaluacion) AS IDMax FROM [Alumno_NumEvaluacion]"),
          Sql("INSERT INTO Alumno_NumEvaluacion VALUES (1,1,2,0,0,0,0,0,0)"),
          Detail(1),
          Detail(4),
          OrderIn(1),
          OrderIn(2),
          Sql("SELECT MAX(IDAlumno_MateriaDetalles) AS IDMax FROM [Alumno_MateriaDetalles]"),
          Sql("INSERT INTO Alumno_MateriaDetalles VALUES (52,1,3214,3211,2,6,-1,0)"),
          Sql("SELECT MAX(IDEvaluacion) AS IDMax FROM [Evaluacion]")};
}

const std::string kSixteenValues = " VALUES (1,52,2,0,0,0,0,0,0,0,0,0,0,0,0,0)";

std::string InTwo(const std::string& columns) {
  return Sql(columns +
             " FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion=2 AND "
             "CodMateriaDetallesAsociada=3211 AND CodMateriaDetalles=3214");
}

template <class Form>
void Add(Form& form) {
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t objective = 4;
  form.AnadirMateriaEvaluacionesPosteriores(student, subject, objective);
}

template <class Form>
void Remove(Form& form) {
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t objective = 4;
  form.QuitarMateriaEvaluacionesPosteriores(student, subject, objective);
}

TEST_F(NotaMateriaDirect, ObjectiveIsAddedToTheNextEvaluation) {
  school_.Sql(kObjective);
  Add(Form());
  EXPECT_THAT(session_.Statements(),
              ElementsAreArray(AddsUpToTheGrades() +
                               Lines{Sql("INSERT INTO Evaluacion" + kSixteenValues)}));
  EXPECT_THAT(school_.Rows("SELECT IDEvaluacion, CodAlumno_MateriaDetalles FROM Evaluacion"),
              ElementsAre("1|52"));
}

TEST_F(NotaSeccionAlumnoDirect, ObjectiveIsAddedToTheNextEvaluation) {
  school_.Sql(kObjective);
  Add(Form());
  EXPECT_THAT(session_.Statements(),
              ElementsAreArray(AddsUpToTheGrades() +
                               Lines{Sql("INSERT INTO Evaluacion" + kSixteenValues)}));
}

// The table of pending grades isn't that wide.
TEST_F(NotaSeccionMateriaDirect, LastInsertOfAddingFailsAndTheFirstTwoStay) {
  school_.Sql(kObjective);
  EXPECT_EQ(DirectSession::ErrorOf([] { Add(Form()); }), -2147467259);
  EXPECT_THAT(session_.Statements(),
              ElementsAreArray(AddsUpToTheGrades() +
                               Lines{Sql("INSERT INTO EvaluacionPte " + kSixteenValues)}));
  EXPECT_THAT(session_.screen.messages, IsEmpty());
  EXPECT_THAT(school_.Rows("SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles"),
              ElementsAre("51", "52"));
}

TEST_F(NotaMateriaDirect, KeysOfFilledTablesAreOneMore) {
  school_.Sql(kObjective);
  school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,2,2,0,0,0,0,0,0);"
      "INSERT INTO Evaluacion VALUES (30,1,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  Add(Form());
  EXPECT_THAT(school_.Rows("SELECT MAX(IDAlumno_NumEvaluacion) FROM Alumno_NumEvaluacion"),
              ElementsAre("10"));
  EXPECT_THAT(school_.Rows("SELECT MAX(IDEvaluacion) FROM Evaluacion"), ElementsAre("31"));
}

TEST_F(NotaMateriaDirect, FailedInsertGoesUpAsItsErrorAndShowsNoMessage) {
  school_.Sql(kObjective);
  school_.Sql(
      "CREATE TRIGGER lleno BEFORE INSERT ON Evaluacion BEGIN SELECT RAISE(FAIL, 'lleno'); END");
  EXPECT_EQ(DirectSession::ErrorOf([] { Add(Form()); }), -2147467259);
  EXPECT_THAT(session_.screen.messages, IsEmpty());
}

TEST_F(NotaMateriaDirect, ObjectiveIsRemovedFromTheLaterEvaluations) {
  school_.Sql(kObjective + ";" + kObjectiveInTwo);
  Remove(Form());
  const auto statements = session_.Statements();
  ASSERT_GE(statements.size(), 6U);
  EXPECT_THAT(Lines(statements.begin(), statements.begin() + 6),
              ElementsAre(Later("IDNumEvaluacion"), Detail(1), Detail(4),
                          InTwo("SELECT IDAlumno_MateriaDetalles"),
                          Sql("DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles=60 AND "
                              "CodNumEvaluacion=2"),
                          InTwo("DELETE")));
  EXPECT_THAT(school_.Rows("SELECT * FROM Evaluacion"), IsEmpty());
}

TEST_F(NotaSeccionAlumnoDirect, ObjectiveIsRemovedFromTheLaterEvaluations) {
  school_.Sql(kObjective + ";" + kObjectiveInTwo);
  Remove(Form());
  EXPECT_THAT(session_.Statements(),
              ::testing::Contains(Sql("DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles=60 "
                                      "AND CodNumEvaluacion=2")));
  EXPECT_THAT(school_.Rows("SELECT * FROM Evaluacion"), IsEmpty());
}

// The table of pending grades has no such column.
TEST_F(NotaSeccionMateriaDirect, DeleteOfRemovingFailsAndTheObjectiveStays) {
  school_.Sql(kObjective + ";" + kObjectiveInTwo);
  EXPECT_EQ(DirectSession::ErrorOf([] { Remove(Form()); }), -2147467259);
  EXPECT_THAT(session_.Statements().back(),
              HasSubstr("DELETE FROM EvaluacionPte WHERE CodAlumno_MateriaDetalles=60"));
  EXPECT_THAT(school_.Rows("SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles"),
              ElementsAre("51", "60"));
}

TEST_F(NotaSeccionMateriaDirect, WithoutAnObjectiveOrALaterEvaluationNothingHappens) {
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t none = 0;
  Form().QuitarMateriaEvaluacionesPosteriores(student, subject, none);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  school_.Sql("DELETE FROM Seccion_NumEvaluacion WHERE CodNumEvaluacion<>1");
  Add(Form());
  Remove(Form());
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Later("IDNumEvaluacion, Orden"), Later("IDNumEvaluacion")));
}

}  // namespace
}  // namespace quorvane::test
