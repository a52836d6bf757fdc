#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

const std::string kPickEvaluations = kOpen + kProperties + kProperties;

/// The lines of an accepted choice that look at those evaluations.
Lines Validations(const std::vector<int>& evaluations) {
  Lines lines;
  for (const auto evaluation : evaluations) lines.push_back(Sent(Validation(evaluation)));
  return lines;
}

/// Student 1 with "Lengua" in evaluation 1, graded.
class frmMateriaEvTest : public RegisterWithRowsTest {
 protected:
  frmMateriaEvTest() {
    Registra({1});
    school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  }

  /// What saving executes after these gestures in the dialog.
  [[nodiscard]] Lines SavedAfter(const std::string& gestures) const {
    return Saved(Run(kPickEvaluations + gestures + kAccept + kAccept + kAccept));
  }

  const Lines update = UpdateSubject(3111, 1, 1);
};

TEST_F(frmMateriaEvTest, PartsTheEvaluationsButTheReservedOne) {
  const auto run = Run(kPickEvaluations + kSee);
  EXPECT_THAT(run.After("pulsar cmdPropiedades"),
              ElementsAre("carga frmMateriaEv", Sent(kEvaluations), "muestra frmMateriaEv"));
  ExpectTexts(run, "Evaluaciones de la Materia Pendiente",
              Join({{"Label1=Materia:", "Label2=Lengua"}, kDualListTexts}));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), R"([["1ª Evaluación",1]])");
  EXPECT_EQ(View(run, "lstDisponibles", "entradas"),
            R"([["Extraordinaria",6],["Segunda extraordinaria",7],["Final",4],)"
            R"(["Segunda final",5],["2ª Evaluación",2],["3ª Evaluación",3]])");
}

TEST_F(frmMateriaEvTest, EntriesMoveAsInTheOtherDualList) {
  const auto run =
      Run(kPickEvaluations +
          "pulsar cmdAgregarUno\npulsar cmdEliminarUno\nelegir lstDisponibles =2\n"
          "doble lstDisponibles\nelegir lstSeleccionados =1\ndoble lstSeleccionados\n" +
          kSee + "pulsar cmdAgregarTodos\n" + kSee + "pulsar cmdEliminarTodos\n" + kSee);
  const auto views = run.Of("ver");
  ASSERT_EQ(views.size(), 3U);
  EXPECT_THAT(views[0], HasSubstr(R"("entradas":[["2ª Evaluación",2]])"));
  EXPECT_THAT(views[0], HasSubstr(R"(["3ª Evaluación",3],["1ª Evaluación",1]])"));
  EXPECT_THAT(views[1], HasSubstr(R"("entradas":[["2ª Evaluación",2],["Extraordinaria",6])"));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), "[]");
  EXPECT_THAT(View(run, "lstDisponibles", "entradas"),
              StartsWith(R"([["2ª Evaluación",2],["Extraordinaria",6])"));
}

TEST_F(frmMateriaEvTest, ThreeFinalEvaluationsAreRefusedOnTheThird) {
  const auto run = Run(kPickEvaluations + TakeIn(4) + TakeIn(2) + TakeIn(5) + TakeIn(6) +
                       TakeIn(7) + kAccept + kSee);
  const std::string refusal =
      R"(informacion "Zendria Escuela" "No puede seleccionar más de dos evaluaciones finales")";
  EXPECT_EQ(run.After("pulsar cmdAceptar"),
            Join({Validations({1, 4, 2, 5, 6}), {"pitido", "mensaje " + refusal}}));
  EXPECT_EQ(View(run, "", "formulario"), "\"frmMateriaEv\"");
}

TEST_F(frmMateriaEvTest, ARefusalChangesNothingOfTheSubject) {
  const auto before = school.Modulo();
  const auto run = Run(kPickEvaluations + TakeOut(1) + TakeIn(4) + TakeIn(6) + kAccept + kCancel +
                       kSee + kAccept + kAccept);
  EXPECT_EQ(run.Of("mensaje").size(), 1U);
  EXPECT_THAT(Materias(run), HasSubstr(R"x(["Lengua (1º ESO)","","","","","X","","","","1"])x"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(frmMateriaEvTest, AFinalAndAnExtraordinaryOneAreRefusedEitherWayRound) {
  const std::string refusal =
      R"(informacion "Zendria Escuela" "Las evaluaciones deben ser del mismo tipo, )"
      R"(finales o extraordinarias")";
  const auto finalFirst = Run(kPickEvaluations + TakeIn(4) + TakeIn(6) + kAccept);
  EXPECT_EQ(finalFirst.After("pulsar cmdAceptar"),
            Join({Validations({1, 4, 6}), {"pitido", "mensaje " + refusal}}));
  const auto finalLast = Run(kPickEvaluations + TakeIn(6) + TakeIn(4) + kAccept);
  EXPECT_THAT(finalLast.Of("mensaje"), ElementsAre(refusal));
}

TEST_F(frmMateriaEvTest, TwoExtraordinaryOnesWithOrdinaryOnesAreAccepted) {
  const auto run = Run(kPickEvaluations + TakeIn(6) + TakeIn(2) + TakeIn(7) + kAccept + kSee);
  EXPECT_THAT(AfterFirst(run, "pulsar cmdAceptar"), Contains("oculta frmPendientes"));
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  const auto lines = run.After("pulsar cmdAceptar");
  EXPECT_EQ(
      std::vector(lines.begin(), lines.begin() + 8),
      Join({Validations({1, 6, 2, 7}),
            {Sent(Creation(6)), Sent(Creation(2)), Sent(Creation(7)), "descarga frmMateriaEv"}}));
  EXPECT_THAT(Materias(run), HasSubstr(R"x(["Lengua (1º ESO)","X","X","","","X","X","","","1"])x"));
}

TEST_F(frmMateriaEvTest, TwoFinalOnesAreAccepted) {
  EXPECT_EQ(SavedAfter(TakeIn(4) + TakeIn(5)),
            Join({update, InsertFinal(1, 1, 4), InsertFinal(2, 1, 5)}));
}

TEST_F(frmMateriaEvTest, WhatEndsAsItBeganMarksTheSubjectChangedAndKeepsTheRowWithItsGrades) {
  for (const auto& gestures :
       {std::string(), TakeOut(1) + TakeIn(1), TakeOut(1) + kAccept + kProperties + TakeIn(1),
        TakeIn(2) + kAccept + kProperties + TakeOut(2)}) {
    EXPECT_EQ(SavedAfter(gestures), update) << gestures;
    EXPECT_THAT(school.Rows("SELECT CodNota FROM EvaluacionPte"), ElementsAre("105")) << gestures;
  }
}

TEST_F(frmMateriaEvTest, AcceptingWithoutASelectionOnASubjectWithoutAnyChangesNothing) {
  school.Sql("DELETE FROM EvaluacionPte");
  EXPECT_THAT(SavedAfter(""), IsEmpty());
}

TEST_F(frmMateriaEvTest, AnEmptySelectionTakesAllEvaluationsOff) {
  school.Evalua(1, 4, 105);
  EXPECT_EQ(SavedAfter("pulsar cmdEliminarTodos\n"),
            Join({update, DeleteEvaluation(1, 1), DeleteEvaluation(4, 1)}));
  ExpectEmpty({"EvaluacionPte", "EvaluacionActaPte"});
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM AlumnoPte_MatDet"), 1);
}

TEST_F(frmMateriaEvTest, TakenOffAndSavedItsRowGoesWithItsGrades) {
  EXPECT_THAT(SavedAfter(TakeOut(1)), SizeIs(4));
  ExpectEmpty({"EvaluacionPte"});
}

TEST_F(frmMateriaEvTest, ANewEvaluationKeptInASecondOpeningIsStillInserted) {
  EXPECT_THAT(SavedAfter(TakeIn(2) + kAccept + kProperties),
              Contains(InsertOrdinary(2, 1, 2).back()));
}

TEST_F(frmMateriaEvTest, TheReservedEvaluationIsInNeitherListAndIsKept) {
  school.Evalua(1, 11, 107);
  const auto run = Run(kPickEvaluations + kSee);
  EXPECT_THAT(run.Of("ver").back(), Not(HasSubstr("Reservada")));
  EXPECT_THAT(SavedAfter("pulsar cmdEliminarTodos\n"), SizeIs(4));
  EXPECT_THAT(school.Rows("SELECT CodNumEvaluacion, CodNota FROM EvaluacionPte"),
              ElementsAre("11|107"));
}

TEST_F(frmMateriaEvTest, WhatWasLoadedOtherwiseStaysUntilItIsAccepted) {
  school.Evalua(1, 4, 105);
  school.Evalua(1, 6, 105);
  const auto cancelled = Run(kPickEvaluations + kCancel + kAccept + kAccept);
  EXPECT_THAT(cancelled.Of("mensaje"), IsEmpty());
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionActaPte"), 2);
  EXPECT_EQ(Run(kPickEvaluations + kAccept).Of("mensaje").size(), 1U);
}

TEST_F(frmMateriaEvTest, AnEvaluationThatWentMeanwhileHasNoRowToTest) {
  const auto run = Run(kPickEvaluations +
                       "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" + kAccept);
  ExpectError(run, 3021);
}

TEST_F(frmMateriaEvTest, AnOrderBeyondEightBitsIsAnOverflow) {
  school.Sql("UPDATE NumEvaluacion SET Orden=256 WHERE IDNumEvaluacion=2");
  ExpectError(Run(kPickEvaluations + TakeIn(2) + kAccept), 6);
}

TEST_F(frmMateriaEvTest, ANewSubjectStaysNew) {
  school.Sql("DELETE FROM AlumnoPte_MatDet; DELETE FROM EvaluacionPte");
  const auto run = Run(kOpen + kProperties + AddSubject(3113) + kProperties + TakeIn(1) +
                       TakeIn(4) + kAccept + kAccept + kAccept);
  // One row in each table, with the same pending subject.
  EXPECT_EQ(Saved(run),
            Join({InsertSubject(1, 3113, 1), InsertOrdinary(1, 1, 1), InsertFinal(1, 1, 4)}));
}

}  // namespace
}  // namespace quorvane::test
