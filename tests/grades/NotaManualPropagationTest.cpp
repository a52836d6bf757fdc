#include <gmock/gmock.h>

#include "tests/grades/NotaManualDirect.h"

// The routines without a caller, on objectives in the host's grade book.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const std::string kObjectives =
    "SELECT * FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion=1 AND CodAlumno=1 AND "
    "CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT IDMateriaDetalles "
    "FROM MateriaDetalles WHERE CodMateria=1)) ORDER BY CodAlumno, CodMateriaDetallesAsociada, "
    "Orden";
const std::string kObjectiveGrades =
    "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, "
    "CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, "
    "CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion=1";

TEST_F(NotaManualDirect, ObjectivesAreReadOnceForEachThatRepeatsAndNothingIsKept) {
  school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3114,3111,1,1,-1,0), "
      "(52,1,3114,3111,1,2,-1,0), (53,1,3113,3111,1,3,-1,0), (54,1,3114,0,1,4,-1,0), "
      "(55,2,3114,3111,1,1,-1,0)");
  auto& form = FormInstance<frmNotaManual>::Get();
  form.CargarObjetivos(1, 1);
  EXPECT_THAT(
      session_.Statements(),
      ElementsAre(Sql(kObjectives), Sql(kObjectiveGrades + " AND CodAlumno_MateriaDetalles=51"),
                  Sql(kObjectiveGrades + " AND CodAlumno_MateriaDetalles=53")));
  PasoUno().blnRecuperar = true;
  form.CargarObjetivos(1, 1);
  EXPECT_EQ(session_.Statements().back(),
            Sql(kObjectiveGrades + " AND (Recuperacion=2 OR Recuperacion=3) AND "
                                   "CodAlumno_MateriaDetalles=53"));
}

// Subject 1 "Lengua" and its objective 4 "Lectura" as taught in section 321, for which the host's
// grade book stands in evaluation 1.
class NotaManualPropagation : public NotaManualDirect {
 protected:
  NotaManualPropagation() {
    school_.Sql(
        "INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, "
        "CodPersonal, CodPersonalAsociado, CodTipoMateria) VALUES (3214,4,321,0,0,10);"
        "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3214,3211,1,6,-1,0)");
  }

  void Add() {
    FormInstance<frmNotaManual>::Get().AnadirMateriaEvaluacionesPosteriores(student_, subject_,
                                                                            objective_);
  }
  void Remove() {
    FormInstance<frmNotaManual>::Get().QuitarMateriaEvaluacionesPosteriores(student_, subject_,
                                                                            objective_);
  }

  std::int32_t student_ = 1;
  std::int32_t subject_ = 1;
  std::int32_t objective_ = 4;
};

std::string Later(const std::string& columns) {
  return Sql("SELECT " + columns +
             " FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE "
             "IDNumEvaluacion=1) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM "
             "Seccion_NumEvaluacion WHERE CodSeccion=321) ORDER BY Orden");
}

std::string Detail(int subject) {
  return Sql(
      "SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={} AND "
      "CodSeccion=321",
      {subject});
}

TEST_F(NotaManualPropagation, AddsToTheNextEvaluationAlone) {
  Add();
  EXPECT_THAT(
      session_.Statements(),
      ElementsAre(
          Later("IDNumEvaluacion, Orden"),
          Sql("SELECT CodAlumno FROM Alumno_NumEvaluacion WHERE CodAlumno=1 AND "
              "CodNumEvaluacion=2"),
          Sql("SELECT MAX(IDAlumno_NumEvaluacion) FROM [Alumno_NumEvaluacion]"),
          Sql("INSERT INTO Alumno_NumEvaluacion VALUES (1,1,2,0,0,0,0,0,0)"), Detail(1), Detail(4),
          Sql("SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion=1 "
              "AND CodMateriaDetalles=3214"),
          Sql("SELECT IDAlumno_MateriaDetalles, Orden FROM Alumno_MateriaDetalles WHERE "
              "CodAlumno=1 AND CodNumEvaluacion=2 AND CodMateriaDetalles=3214"),
          Sql("SELECT MAX(IDAlumno_MateriaDetalles) FROM [Alumno_MateriaDetalles]"),
          Sql("INSERT INTO Alumno_MateriaDetalles VALUES (52,1,3214,3211,2,6,-1,0)"),
          Sql("SELECT MAX(IDEvaluacion) FROM [Evaluacion]"),
          Sql("INSERT INTO Evaluacion VALUES (1,52,2,0,0,0,0,0,0,0,0,0,0,0,0,0)")));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM Alumno_MateriaDetalles"), ElementsAre("2"));
}

TEST_F(NotaManualPropagation, StudentWhoIsThereIsNotInsertedAgainAndNeitherIsTheObjective) {
  school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,1,2,0,0,0,0,0,0);"
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0)");
  Add();
  EXPECT_EQ(session_.Statements().size(), 6U) << "nothing but the questions";
}

TEST_F(NotaManualPropagation, WithoutALaterEvaluationNothingIsAdded) {
  school_.Sql("DELETE FROM Seccion_NumEvaluacion WHERE CodNumEvaluacion<>1");
  Add();
  Remove();
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Later("IDNumEvaluacion, Orden"), Later("IDNumEvaluacion")));
}

TEST_F(NotaManualPropagation, RowThatHasToBeThereIsNotTested) {
  objective_ = 999;
  EXPECT_EQ(DirectSession::ErrorOf([this] { Add(); }), 3021);
  EXPECT_EQ(DirectSession::ErrorOf([this] { Remove(); }), 3021);
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM Alumno_NumEvaluacion"), ElementsAre("1"))
      << "what was written stays";
}

TEST_F(NotaManualPropagation, FailedInsertGoesUpAsItsErrorAndShowsNoMessage) {
  school_.Sql(
      "CREATE TRIGGER lleno BEFORE INSERT ON Evaluacion BEGIN SELECT RAISE(FAIL, 'lleno'); "
      "END");
  EXPECT_EQ(DirectSession::ErrorOf([this] { Add(); }), -2147467259);
  EXPECT_THAT(session_.screen.messages, IsEmpty());
}

TEST_F(NotaManualPropagation, RemovesFromAllLaterEvaluations) {
  school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0), "
      "(61,1,3214,3211,3,6,-1,0), (62,2,3214,3211,2,6,-1,0);"
      "INSERT INTO Evaluacion VALUES (1,60,2,0,0,0,0,0,0,0,0,0,0,0,0,0), "
      "(2,61,3,0,0,0,0,0,0,0,0,0,0,0,0,0), (3,62,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  Remove();
  Lines expected = {Later("IDNumEvaluacion")};
  const std::string row =
      " FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion={} AND "
      "CodMateriaDetallesAsociada=3211 AND CodMateriaDetalles=3214";
  for (const auto& [evaluation, id] : {std::pair{2L, 60L}, std::pair{3L, 61L}}) {
    expected.push_back(Detail(1));
    expected.push_back(Detail(4));
    expected.push_back(Sql("SELECT IDAlumno_MateriaDetalles" + row, {evaluation}));
    expected.push_back(
        Sql("DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}",
            {id, evaluation}));
    expected.push_back(Sql("DELETE" + row, {evaluation}));
  }
  // The reserved evaluation is the last; the student isn't in it.
  expected.push_back(Detail(1));
  expected.push_back(Detail(4));
  expected.push_back(Sql("SELECT IDAlumno_MateriaDetalles" + row, {11}));
  EXPECT_THAT(session_.Statements(), ElementsAreArray(expected));
  EXPECT_THAT(
      school_.Rows("SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles ORDER BY 1"),
      ElementsAre("51", "62"));
  EXPECT_THAT(school_.Rows("SELECT IDEvaluacion FROM Evaluacion"), ElementsAre("3"));
}

TEST_F(NotaManualPropagation, WithoutAnObjectiveNothingIsRemoved) {
  objective_ = 0;
  Remove();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
