#include <string>
#include <tuple>

#include "tests/grades/FinalForm.h"
#include "tests/grades/FinalStatements.h"
#include "tests/support/Matchers.h"

// What a save of the final dialogs writes, and where it leaves the mark of the last evaluation with
// a grade.

namespace quorvane::test {
namespace {

/// A pending subject before and after a save: grade and mark of its two final evaluations.
struct Transition {
  const char* name;
  int evaluacion;     ///< that is saved
  const char* grade;  ///< chosen in it; the blank takes it away
  int first;          ///< the grades that stand, 0 for none
  int second;
  int marked;  ///< the evaluation with the mark, 0 for none
  int markedAfter;
};

void PrintTo(const Transition& transition, std::ostream* out) { *out << transition.name; }

class FinalSaveMarkTest : public FinalTest,
                          public ::testing::WithParamInterface<std::tuple<FinalForm, Transition>> {
 protected:
  FinalSaveMarkTest() : FinalTest(std::get<0>(GetParam())) {}

  std::string SetRow(int evaluacion, int nota, bool marked) const {
    return "UPDATE EvaluacionActaPte SET CodNota=" + std::to_string(nota) +
           ", Evaluado=" + (nota > 0 ? "-1" : "0") + ", UltimaEvaluada=" + (marked ? "-1" : "0") +
           " WHERE CodAlumnoPte_MatDet=" + std::to_string(form_.pending) +
           " AND CodNumEvaluacion=" + std::to_string(evaluacion);
  }
};

// The second final offers a subject only while the first has failed it: what the first has in the
// end, the table sets when the dialog stands open.
TEST_P(FinalSaveMarkTest, Moves) {
  const auto& transition = std::get<1>(GetParam());
  school_.Sql(SetRow(4, 103, false));
  school_.Sql(SetRow(5, transition.second, transition.marked == 5));
  const auto result =
      Play(std::string("editar rtvNotasAlumno 1 1 \"") + transition.grade + "\"\nsql \"" +
               SetRow(4, transition.first, transition.marked == 4) + "\"\npulsar cmdAceptar\n",
           kTutor, transition.evaluacion);
  EXPECT_THAT(result.Of("rechazo"), IsEmpty());
  EXPECT_THAT(school_.Rows("SELECT CodNumEvaluacion, UltimaEvaluada FROM EvaluacionActaPte WHERE "
                           "CodAlumnoPte_MatDet=" +
                           std::to_string(form_.pending) + " ORDER BY 1"),
              ElementsAre(transition.markedAfter == 4 ? "4|-1" : "4|0",
                          transition.markedAfter == 5 ? "5|-1" : "5|0"));
}

INSTANTIATE_TEST_SUITE_P(
    Transitions, FinalSaveMarkTest,
    ::testing::Combine(
        ::testing::ValuesIn(FinalForms()),
        ::testing::Values(Transition{"FirstGradedWithoutMark", 4, "7", 0, 0, 0, 4},
                          Transition{"SecondGradedAfterFirst", 5, "7", 103, 0, 4, 5},
                          Transition{"FirstGradedAfterSecond", 4, "7", 103, 105, 5, 5},
                          Transition{"SecondTakenAwayWithFirstGraded", 5, " ", 103, 105, 5, 4},
                          Transition{"SecondTakenAwayWithFirstUngraded", 5, " ", 0, 105, 5, 0},
                          Transition{"FirstTakenAwayAfterSecond", 4, " ", 103, 105, 5, 5})),
    [](const auto& both) {
      return std::string(std::get<0>(both.param).name) + std::get<1>(both.param).name;
    });

class FinalSaveTest : public FinalFormTest {
 protected:
  /// The row, and another one of the same save, as they are stored.
  std::string Stored(int evaluacion = 4) const { return school_.Stored(form_.pending, evaluacion); }
  std::string OtherStored(int evaluacion = 4) const {
    return school_.Stored(form_.otherPending, evaluacion);
  }
};

TEST_P(FinalSaveTest, AcceptedWithoutAnEditRewritesAndRecomputes) {
  Set(form_.pending, "CodNota=104, CodNotaObservacion=201, RE_AC_DIV=1");
  Set(form_.otherPending, "CodNotaObservacion=202, RE_AC_DIV=2, Evaluado=-1, UltimaEvaluada=-1");
  Save();
  EXPECT_EQ(Stored(), "104|201|1|-1|-1");
  EXPECT_EQ(OtherStored(), "0|202|2|0|0");
  EXPECT_EQ(Stored(5), "0|0|0|0|0");
}

TEST_P(FinalSaveTest, ObservationWithoutAGradeIsKeptAsNotEvaluated) {
  Set(form_.pending, "RE_AC_DIV=2");
  Save("editar rtvNotasAlumno 1 5 \"Mejora\"\n");
  EXPECT_EQ(Stored(), "0|202|2|0|0");
}

TEST_P(FinalSaveTest, MeasureBeyondTheKnownOnesIsWrittenBackUnchanged) {
  Set(form_.pending, "RE_AC_DIV=3");
  Set(form_.otherPending, "RE_AC_DIV=255");
  const auto result = Play("ver\npulsar cmdAceptar\n");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1), form_.Row("|||||"));
  EXPECT_EQ(Stored(), "0|0|3|0|0");
  EXPECT_EQ(OtherStored(), "0|0|255|0|0");
}

TEST_P(FinalSaveTest, FirstSavedAfterTheSecondLeavesTheMarkOnTheSecond) {
  school_.Sql("UPDATE EvaluacionActaPte SET CodNota=103, Evaluado=-1");
  Set(form_.pending, "UltimaEvaluada=-1", 5);
  const auto result = Play("editar rtvNotasAlumno 1 1 \"9\"\npulsar cmdAceptar\n");
  EXPECT_EQ(Stored(4), "109|0|0|-1|0");
  EXPECT_EQ(Stored(5), "103|0|0|-1|-1");
  EXPECT_EQ(First(Traffic(result.After("pulsar cmdAceptar")), 2),
            SaveFinalBehindTheMark(kTutor, 4, form_.pending, 109));
}

TEST_P(FinalSaveTest, TakingTheOnlyGradeAwayLeavesTheSubjectWithoutAMark) {
  Save("editar rtvNotasAlumno 1 1 \"7\"\n");
  EXPECT_EQ(Stored(), "107|0|0|-1|-1");
  Save("editar rtvNotasAlumno 1 1 nada\n");
  EXPECT_EQ(Stored(), "0|0|0|0|0");
  EXPECT_THAT(school_.Rows("SELECT * FROM EvaluacionActaPte WHERE UltimaEvaluada<>0"), IsEmpty());
}

TEST_P(FinalSaveTest, SubjectPassedInTheFirstKeepsItsRowOfTheSecondAndTheMarkOfTheFirst) {
  GradeFirst(form_.otherPending, 105);
  GradeFirst(form_.pending, 103);
  const auto result = Play("editar rtvNotasAlumno 1 1 \"5\"\npulsar cmdAceptar\n", kTutor, 5);
  EXPECT_EQ(OtherStored(4), "105|0|0|-1|-1");
  EXPECT_EQ(OtherStored(5), "0|0|0|0|0");
  EXPECT_EQ(Stored(5), "105|0|0|-1|-1");
  EXPECT_THAT(
      Traffic(result.After("pulsar cmdAceptar")),
      Not(Contains(HasSubstr("CodAlumnoPte_MatDet =" + std::to_string(form_.otherPending)))));
}

TEST_P(FinalSaveTest, NegativeGradeCountsAsNoneEverywhere) {
  GradeFirst(form_.pending, -5);
  Save();
  EXPECT_EQ(Stored(), "-5|0|0|0|0");
  school_.Evalua(form_.pending, 6);
  Save("", 6);
  EXPECT_EQ(Stored(), "-5|0|0|0|0");
}

TEST_P(FinalSaveTest, EditOfAConceptIsLost) {
  school_.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=11");
  const auto result = Play(std::string("editar rtvNotasAlumno 1 2 \"7\"\nelegir ") + form_.combo +
                           " #0\nver\npulsar cmdAceptar\n");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1), form_.Row("|7|||| "));
  EXPECT_EQ(Stored(), "0|0|0|0|0");
}

TEST_P(FinalSaveTest, NullGradesAreSavedAsNone) {
  school_.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=NULL, CodNotaObservacion=NULL, RE_AC_DIV=NULL, "
      "Evaluado=NULL, UltimaEvaluada=NULL WHERE CodNumEvaluacion=4");
  Save();
  EXPECT_EQ(Stored(), "0|0|0|0|0");
}

TEST_P(FinalSaveTest, NoOtherTableIsTouched) {
  school_.Evalua(1, 1, 105);
  const auto pending = school_.Rows("SELECT * FROM AlumnoPte_MatDet");
  const auto ordinary = school_.Rows("SELECT * FROM EvaluacionPte");
  const auto result = Play("editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdAceptar\n");
  EXPECT_EQ(school_.Rows("SELECT * FROM AlumnoPte_MatDet"), pending);
  EXPECT_EQ(school_.Rows("SELECT * FROM EvaluacionPte"), ordinary);
  EXPECT_EQ(school_.Held(), "0|0");
  for (const auto& line : Traffic(result.After("pulsar cmdAceptar")))
    EXPECT_TRUE(line.find("UPDATE") == std::string::npos ||
                line.find("UPDATE EvaluacionActaPte SET") != std::string::npos)
        << line;
}

// Step one comes back with what was chosen, and the way can be gone again.
TEST_P(FinalSaveTest, SavingGoesBackToStepOneWithItsChoices) {
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdAceptar\nver\npulsar cmdNotaManual1(0)\nver\n"
      "pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(FormView(result, 1).Form(), form_.stepOne);
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1), form_.Row("7||||| "));
  EXPECT_THAT(result.Of("vuelve"), ElementsAre(std::to_string(form_.node)));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Stored(), "107|0|0|-1|-1");
  EXPECT_EQ(OtherStored(), "0|0|0|0|0");
}

TEST_P(FinalSaveTest, ClosingWithTheCrossSavesNothingAndGivesEverythingBack) {
  const auto before = school_.Modulo();
  const auto result = Play("editar rtvNotasAlumno 1 1 \"7\"\ncerrar\n");
  EXPECT_EQ(school_.Modulo(), before);
  EXPECT_THAT(Traffic(result.After("cerrar")), ElementsAreArray(Leave(kTutor, 1)));
}

INSTANTIATE_TEST_SUITE_P(Forms, FinalSaveTest, ::testing::ValuesIn(FinalForms()), kNameOfForm);

}  // namespace
}  // namespace quorvane::test
