#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kPick = kOpen + "pulsar cmdPropiedades\npulsar cmdPropiedades\n";
const std::string kAccept = "pulsar cmdAceptar\n";
const std::string kUpdate =
    "sql centro SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=3111 AND "
    "CodAlumno=1";

std::string Add(int evaluacion) {
  return "elegir lstDisponibles =" + std::to_string(evaluacion) + "\npulsar cmdAgregarUno\n";
}

std::string TakeOff(int evaluacion) {
  return "elegir lstSeleccionados =" + std::to_string(evaluacion) + "\npulsar cmdEliminarUno\n";
}

std::string Validation(int evaluacion) {
  return "sql centro SELECT Extraordinaria, Final FROM NumEvaluacion WHERE IDNumEvaluacion=" +
         std::to_string(evaluacion);
}

std::string Creation(int evaluacion) {
  return "sql centro SELECT Extraordinaria, Final, Orden FROM NumEvaluacion WHERE "
         "IDNumEvaluacion=" +
         std::to_string(evaluacion);
}

/// Student 1 with "Lengua" in evaluation 1, graded.
class frmMateriaEvTest : public testing::Test {
 protected:
  frmMateriaEvTest() {
    GiveRowsToAllMaterias(school);
    school.Registra(321, 1);
    school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  }

  /// What saving executes after these gestures in the dialog.
  [[nodiscard]] std::vector<std::string> SavedAfter(const std::string& gestures) const {
    const auto run = RunScript(school, kPick + gestures + kAccept + kAccept + kAccept);
    auto lines = run.After("pulsar cmdAceptar");
    EXPECT_THAT(lines, Contains("vuelve 123")) << run.Text();
    if (lines.size() >= 2) lines.resize(lines.size() - 2);
    return lines;
  }

  SmallSchool school;
};

TEST_F(frmMateriaEvTest, PartsTheEvaluationsButTheReservedOne) {
  const auto run = RunScript(school, kPick + "ver\n");
  EXPECT_THAT(run.After("pulsar cmdPropiedades"),
              ElementsAre("carga frmMateriaEv",
                          "sql centro SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion  "
                          "WHERE idnumevaluacion<>11  ORDER BY Final, Extraordinaria,Orden",
                          "muestra frmMateriaEv"));
  EXPECT_EQ(View(run, "", "titulo"), "\"Evaluaciones de la Materia Pendiente\"");
  EXPECT_EQ(View(run, "Label1", "texto"), "\"Materia:\"");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Lengua\"");
  EXPECT_EQ(View(run, "lblDisponibles", "texto"), "\"Seleccionadas:\"");
  EXPECT_EQ(View(run, "lblSeleccionadas", "texto"), "\"Disponibles:\"");
  EXPECT_EQ(View(run, "cmdAgregarUno", "texto"), "\"<- Agregar\"");
  EXPECT_EQ(View(run, "cmdAgregarTodos", "texto"), "\"<<- Todos\"");
  EXPECT_EQ(View(run, "cmdEliminarUno", "texto"), "\"Quitar ->\"");
  EXPECT_EQ(View(run, "cmdEliminarTodos", "texto"), "\"Todos ->>\"");
  EXPECT_EQ(View(run, "cmdAceptar", "texto"), "\"Aceptar\"");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Cancelar\"");
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), R"([["1ª Evaluación",1]])");
  EXPECT_EQ(View(run, "lstDisponibles", "entradas"),
            R"([["Extraordinaria",6],["Segunda extraordinaria",7],["Final",4],)"
            R"(["Segunda final",5],["2ª Evaluación",2],["3ª Evaluación",3]])");
}

TEST_F(frmMateriaEvTest, EntriesMoveAsInTheOtherDualList) {
  const auto run = RunScript(school, kPick +
                                         "pulsar cmdAgregarUno\npulsar cmdEliminarUno\n"
                                         "elegir lstDisponibles =2\ndoble lstDisponibles\n"
                                         "elegir lstSeleccionados =1\ndoble lstSeleccionados\nver\n"
                                         "pulsar cmdAgregarTodos\nver\npulsar cmdEliminarTodos\n"
                                         "ver\n");
  const auto views = run.Of("ver");
  ASSERT_EQ(views.size(), 3U);
  EXPECT_THAT(views[0], HasSubstr(R"("entradas":[["2ª Evaluación",2]])"));
  EXPECT_THAT(views[0], HasSubstr(R"(["3ª Evaluación",3],["1ª Evaluación",1]])"));
  EXPECT_THAT(views[1], HasSubstr(R"("entradas":[["2ª Evaluación",2],["Extraordinaria",6])"));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), "[]");
  EXPECT_THAT(View(run, "lstDisponibles", "entradas"),
              testing::StartsWith(R"([["2ª Evaluación",2],["Extraordinaria",6])"));
}

TEST_F(frmMateriaEvTest, ThreeFinalEvaluationsAreRefusedOnTheThird) {
  const auto run =
      RunScript(school, kPick + Add(4) + Add(2) + Add(5) + Add(6) + Add(7) + kAccept + "ver\n");
  const std::string refusal =
      R"(informacion "Zendria Escuela" "No puede seleccionar más de dos evaluaciones finales")";
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre(Validation(1), Validation(4), Validation(2), Validation(5), Validation(6),
                          "pitido", "mensaje " + refusal));
  EXPECT_EQ(View(run, "", "formulario"), "\"frmMateriaEv\"");
}

TEST_F(frmMateriaEvTest, ARefusalChangesNothingOfTheSubject) {
  const auto before = school.Modulo();
  const auto run = RunScript(school, kPick + TakeOff(1) + Add(4) + Add(6) + kAccept +
                                         "pulsar cmdCancelar\nver\n" + kAccept + kAccept);
  EXPECT_EQ(run.Of("mensaje").size(), 1U);
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              HasSubstr(R"x(["Lengua (1º ESO)","","","","","X","","","","1"])x"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(frmMateriaEvTest, AFinalAndAnExtraordinaryOneAreRefusedEitherWayRound) {
  const std::string refusal =
      R"(informacion "Zendria Escuela" "Las evaluaciones deben ser del mismo tipo, )"
      R"(finales o extraordinarias")";
  const auto finalFirst = RunScript(school, kPick + Add(4) + Add(6) + kAccept);
  EXPECT_THAT(
      finalFirst.After("pulsar cmdAceptar"),
      ElementsAre(Validation(1), Validation(4), Validation(6), "pitido", "mensaje " + refusal));
  const auto finalLast = RunScript(school, kPick + Add(6) + Add(4) + kAccept);
  EXPECT_THAT(finalLast.Of("mensaje"), ElementsAre(refusal));
}

TEST_F(frmMateriaEvTest, TwoExtraordinaryOnesWithOrdinaryOnesAreAccepted) {
  const auto run = RunScript(school, kPick + Add(6) + Add(2) + Add(7) + kAccept + "ver\n");
  EXPECT_THAT(AfterFirst(run, "pulsar cmdAceptar"), Contains("oculta frmPendientes"));
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  const auto lines = run.After("pulsar cmdAceptar");
  EXPECT_THAT(std::vector(lines.begin(), lines.begin() + 8),
              ElementsAre(Validation(1), Validation(6), Validation(2), Validation(7), Creation(6),
                          Creation(2), Creation(7), "descarga frmMateriaEv"));
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              HasSubstr(R"x(["Lengua (1º ESO)","X","X","","","X","X","","","1"])x"));
}

TEST_F(frmMateriaEvTest, TwoFinalOnesAreAccepted) {
  EXPECT_THAT(SavedAfter(Add(4) + Add(5)),
              ElementsAre(kUpdate,
                          "sql centro UPDATE AlumnoPte_MatDet SET Orden=1 WHERE "
                          "IDAlumnoPte_MatDet=1",
                          "sql centro SELECT MAX(IDEvaluacionActaPte) FROM [EvaluacionActaPte]",
                          "sql centro INSERT INTO EvaluacionActaPte VALUES (1,1,4,0,0,0,0,0)",
                          "sql centro SELECT MAX(IDEvaluacionActaPte) FROM [EvaluacionActaPte]",
                          "sql centro INSERT INTO EvaluacionActaPte VALUES (2,1,5,0,0,0,0,0)"));
}

TEST_F(frmMateriaEvTest, AcceptingAnySelectedEntryMarksTheSubjectChanged) {
  EXPECT_THAT(SavedAfter(""), ElementsAre(kUpdate, testing::HasSubstr("SET Orden=1")));
  EXPECT_THAT(school.Rows("SELECT CodNota FROM EvaluacionPte"), ElementsAre("105"));
}

TEST_F(frmMateriaEvTest, AcceptingWithoutASelectionOnASubjectWithoutAnyChangesNothing) {
  school.Sql("DELETE FROM EvaluacionPte");
  EXPECT_THAT(SavedAfter(""), IsEmpty());
}

TEST_F(frmMateriaEvTest, AnEmptySelectionTakesAllEvaluationsOff) {
  school.Evalua(1, 4, 105);
  EXPECT_THAT(SavedAfter("pulsar cmdEliminarTodos\n"),
              ElementsAre(kUpdate, testing::HasSubstr("SET Orden=1"),
                          "sql centro DELETE FROM EvaluacionActaPte WHERE codnumevaluacion=1 AND "
                          "codAlumnoPte_MatDet=1",
                          "sql centro DELETE FROM EvaluacionPte WHERE codnumevaluacion=1 AND "
                          "codAlumnoPte_MatDet=1",
                          "sql centro DELETE FROM EvaluacionActaPte WHERE codnumevaluacion=4 AND "
                          "codAlumnoPte_MatDet=1",
                          "sql centro DELETE FROM EvaluacionPte WHERE codnumevaluacion=4 AND "
                          "codAlumnoPte_MatDet=1"));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), IsEmpty());
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM AlumnoPte_MatDet"), 1);
}

TEST_F(frmMateriaEvTest, TakenOffAndPutBackInOneOpeningItsRowAndGradesStay) {
  EXPECT_THAT(SavedAfter(TakeOff(1) + Add(1)), ElementsAre(kUpdate, HasSubstr("SET Orden=1")));
  EXPECT_THAT(school.Rows("SELECT CodNota FROM EvaluacionPte"), ElementsAre("105"));
}

TEST_F(frmMateriaEvTest, TakenOffAndPutBackInTwoOpeningsItsRowAndGradesStay) {
  EXPECT_THAT(SavedAfter(TakeOff(1) + kAccept + "pulsar cmdPropiedades\n" + Add(1)),
              ElementsAre(kUpdate, HasSubstr("SET Orden=1")));
  EXPECT_THAT(school.Rows("SELECT CodNota FROM EvaluacionPte"), ElementsAre("105"));
}

TEST_F(frmMateriaEvTest, TakenOffAndSavedItsRowGoesWithItsGrades) {
  EXPECT_THAT(SavedAfter(TakeOff(1)), testing::SizeIs(4));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte"), IsEmpty());
}

TEST_F(frmMateriaEvTest, ANewEvaluationTakenOffAgainIsForgotten) {
  EXPECT_THAT(SavedAfter(Add(2) + kAccept + "pulsar cmdPropiedades\n" + TakeOff(2)),
              ElementsAre(kUpdate, HasSubstr("SET Orden=1")));
}

TEST_F(frmMateriaEvTest, ANewEvaluationKeptInASecondOpeningIsStillInserted) {
  EXPECT_THAT(SavedAfter(Add(2) + kAccept + "pulsar cmdPropiedades\n"),
              Contains("sql centro INSERT INTO EvaluacionPte VALUES (2,1,2,0,0,0,0,0,0,0)"));
}

TEST_F(frmMateriaEvTest, TheReservedEvaluationIsInNeitherListAndIsKept) {
  school.Evalua(1, 11, 107);
  const auto run = RunScript(school, kPick + "ver\n");
  EXPECT_THAT(run.Of("ver").back(), Not(HasSubstr("Reservada")));
  EXPECT_THAT(SavedAfter("pulsar cmdEliminarTodos\n"), testing::SizeIs(4));
  EXPECT_THAT(school.Rows("SELECT CodNumEvaluacion, CodNota FROM EvaluacionPte"),
              ElementsAre("11|107"));
}

TEST_F(frmMateriaEvTest, WhatWasLoadedOtherwiseStaysUntilItIsAccepted) {
  school.Evalua(1, 4, 105);
  school.Evalua(1, 6, 105);
  const auto cancelled = RunScript(school, kPick + "pulsar cmdCancelar\n" + kAccept + kAccept);
  EXPECT_THAT(cancelled.Of("mensaje"), IsEmpty());
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionActaPte"), 2);
  EXPECT_EQ(RunScript(school, kPick + kAccept).Of("mensaje").size(), 1U);
}

TEST_F(frmMateriaEvTest, AnEvaluationThatWentMeanwhileHasNoRowToTest) {
  const auto run = RunScript(
      school, kPick + "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kAccept);
  EXPECT_THAT(run.Of("error"), ElementsAre(testing::StartsWith("3021 ")));
}

TEST_F(frmMateriaEvTest, AnOrderBeyondEightBitsIsAnOverflow) {
  school.Sql("UPDATE NumEvaluacion SET Orden=256 WHERE IDNumEvaluacion=2");
  const auto run = RunScript(school, kPick + Add(2) + kAccept);
  EXPECT_THAT(run.Of("error"), ElementsAre(testing::StartsWith("6 ")));
}

TEST_F(frmMateriaEvTest, ANewSubjectStaysNew) {
  school.Sql("DELETE FROM AlumnoPte_MatDet; DELETE FROM EvaluacionPte");
  const auto run =
      RunScript(school, kOpen +
                            "pulsar cmdPropiedades\npulsar cmdAgregar\nelegir cboCurso =31\n"
                            "elegir cboSeccion =311\nelegir cboMateria =3113\n" +
                            kAccept + "pulsar cmdPropiedades\n" + Add(1) + Add(4) + kAccept +
                            kAccept + kAccept);
  // One row in each table, with the same pending subject.
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
                          "sql centro INSERT INTO Alumnopte_MatDet VALUES (1,1,3113,1,0)",
                          "sql centro SELECT MAX(IDEvaluacionPte) FROM [EvaluacionPte]",
                          "sql centro INSERT INTO EvaluacionPte VALUES (1,1,1,0,0,0,0,0,0,0)",
                          "sql centro SELECT MAX(IDEvaluacionActaPte) FROM [EvaluacionActaPte]",
                          "sql centro INSERT INTO EvaluacionActaPte VALUES (1,1,4,0,0,0,0,0)",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
}

}  // namespace
}  // namespace quorvane::test
