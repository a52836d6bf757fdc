#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"

// What a save writes, and where it leaves the mark of the last evaluation with a grade.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

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

class FinalMark : public ::testing::TestWithParam<Transition> {};

std::string SetRow(int evaluacion, int nota, bool marked) {
  return "UPDATE EvaluacionActaPte SET CodNota=" + std::to_string(nota) +
         ", Evaluado=" + (nota > 0 ? "-1" : "0") + ", UltimaEvaluada=" + (marked ? "-1" : "0") +
         " WHERE CodAlumnoPte_MatDet=4 AND CodNumEvaluacion=" + std::to_string(evaluacion);
}

// The second final offers a subject only while the first has failed it: what the first has in the
// end, the table sets when the dialog stands open.
TEST_P(FinalMark, Moves) {
  const auto& transition = GetParam();
  const FinalSchool school;
  school.Sql(SetRow(4, 103, false));
  school.Sql(SetRow(5, transition.second, transition.marked == 5));
  const auto result =
      RunScript(school,
                OpenFinal(transition.evaluacion) + "editar rtvNotasAlumno 1 1 \"" +
                    transition.grade + "\"\nsql \"" +
                    SetRow(4, transition.first, transition.marked == 4) + "\"\npulsar cmdAceptar\n",
                SessionOf(kTutor));
  EXPECT_THAT(result.Of("rechazo"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT CodNumEvaluacion, UltimaEvaluada FROM EvaluacionActaPte WHERE "
                          "CodAlumnoPte_MatDet=4 ORDER BY 1"),
              ElementsAre(transition.markedAfter == 4 ? "4|-1" : "4|0",
                          transition.markedAfter == 5 ? "5|-1" : "5|0"));
}

INSTANTIATE_TEST_SUITE_P(
    Transitions, FinalMark,
    ::testing::Values(Transition{"FirstGradedWithoutMark", 4, "7", 0, 0, 0, 4},
                      Transition{"SecondGradedAfterFirst", 5, "7", 103, 0, 4, 5},
                      Transition{"FirstGradedAfterSecond", 4, "7", 103, 105, 5, 5},
                      Transition{"SecondTakenAwayWithFirstGraded", 5, " ", 103, 105, 5, 4},
                      Transition{"SecondTakenAwayWithFirstUngraded", 5, " ", 0, 105, 5, 0},
                      Transition{"FirstTakenAwayAfterSecond", 4, " ", 103, 105, 5, 5}),
    [](const auto& transition) { return transition.param.name; });

TEST(FinalByStudentSave, AcceptedWithoutAnEditRewritesAndRecomputes) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=104, CodNotaObservacion=201, RE_AC_DIV=1 WHERE "
      "CodAlumnoPte_MatDet=4 AND CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET Evaluado=-1, UltimaEvaluada=-1 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4");
  static_cast<void>(RunScript(school, OpenFinal() + "pulsar cmdAceptar\n", SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "104|201|1|-1|-1");
  EXPECT_EQ(school.Stored(3, 4), "0|0|0|0|0");
  EXPECT_EQ(school.Stored(4, 5), "0|0|0|0|0");
}

TEST(FinalByStudentSave, ObservationWithoutAGradeIsKeptAsNotEvaluated) {
  const FinalSchool school;
  school.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=2 WHERE CodAlumnoPte_MatDet=4");
  static_cast<void>(RunScript(school,
                              OpenFinal() + "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                            "pulsar cmdAceptar\n",
                              SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "0|202|2|0|0");
}

TEST(FinalByStudentSave, MeasureBeyondTheKnownOnesIsWrittenBackUnchanged) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET RE_AC_DIV=3 WHERE CodAlumnoPte_MatDet=4;"
      "UPDATE EvaluacionActaPte SET RE_AC_DIV=255 WHERE CodAlumnoPte_MatDet=3");
  const auto result =
      RunScript(school, OpenFinal() + "ver\npulsar cmdAceptar\n", SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"), Contains("Francés (1º ESO)|||||||0|4"));
  EXPECT_EQ(school.Stored(4, 4), "0|0|3|0|0");
  EXPECT_EQ(school.Stored(3, 4), "0|0|255|0|0");
}

TEST(FinalByStudentSave, FirstSavedAfterTheSecondLeavesTheMarkOnTheSecond) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103, Evaluado=-1 WHERE CodAlumnoPte_MatDet=4;"
      "UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE CodAlumnoPte_MatDet=4 AND "
      "CodNumEvaluacion=5");
  const auto result =
      RunScript(school, OpenFinal() + "editar rtvNotasAlumno 1 1 \"9\"\npulsar cmdAceptar\n",
                SessionOf(kTutor));
  EXPECT_EQ(school.Stored(4, 4), "109|0|0|-1|0");
  EXPECT_EQ(school.Stored(4, 5), "103|0|0|-1|-1");
  const auto saved = Traffic(result.After("pulsar cmdAceptar"));
  EXPECT_THAT(Lines(saved.begin(), saved.begin() + 2),
              ElementsAre(Sql("SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE "
                              "UltimaEvaluada=-1 AND CodNumEvaluacion > 4 AND CodAlumnoPte_MatDet "
                              "=4"),
                          Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota=109, "
                              "CodNotaObservacion=0, RE_AC_DIV=0, Evaluado=-1 WHERE "
                              "CodNumEvaluacion=4 AND CodAlumnoPte_MatDet =4")));
}

TEST(FinalByStudentSave, TakingTheOnlyGradeAwayLeavesTheSubjectWithoutAMark) {
  const FinalSchool school;
  static_cast<void>(RunScript(school,
                              OpenFinal() + "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdAceptar\n",
                              SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "107|0|0|-1|-1");
  static_cast<void>(RunScript(school,
                              OpenFinal() + "editar rtvNotasAlumno 1 1 nada\npulsar cmdAceptar\n",
                              SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "0|0|0|0|0");
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte WHERE UltimaEvaluada<>0"), IsEmpty());
}

TEST(FinalByStudentSave, SubjectPassedInTheFirstKeepsItsRowOfTheSecondAndTheMarkOfTheFirst) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodAlumnoPte_MatDet IN (1,2) AND CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=4");
  const auto result =
      RunScript(school, OpenFinal(5) + "editar rtvNotasAlumno 1 1 \"5\"\npulsar cmdAceptar\n",
                SessionOf(kTutor));
  EXPECT_EQ(school.Stored(1, 4), "105|0|0|-1|-1");
  EXPECT_EQ(school.Stored(1, 5), "0|0|0|0|0");
  EXPECT_EQ(school.Stored(2, 5), "105|0|0|-1|-1");
  EXPECT_THAT(Traffic(result.After("pulsar cmdAceptar")),
              Not(Contains(HasSubstr("CodAlumnoPte_MatDet =1"))));
}

TEST(FinalByStudentSave, NegativeGradeCountsAsNoneEverywhere) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=-5, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodAlumnoPte_MatDet=4 AND CodNumEvaluacion=4");
  static_cast<void>(RunScript(school, OpenFinal() + "pulsar cmdAceptar\n", SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "-5|0|0|0|0");
  school.Evalua(4, 6);
  static_cast<void>(RunScript(school, OpenFinal(6) + "pulsar cmdAceptar\n", SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "-5|0|0|0|0");
}

TEST(FinalByStudentSave, EditOfAConceptIsLost) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=11");
  const auto result = RunScript(school,
                                OpenFinal() +
                                    "editar rtvNotasAlumno 1 2 \"7\"\n"
                                    "elegir cboAlumnos #0\nver\npulsar cmdAceptar\n",
                                SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"), Contains("Francés (1º ESO)||7|||| |0|4"));
  EXPECT_EQ(school.Stored(4, 4), "0|0|0|0|0");
}

TEST(FinalByStudentSave, NoOtherTableIsTouched) {
  const FinalSchool school;
  school.Evalua(1, 1, 105);
  const auto before = school.Rows("SELECT * FROM AlumnoPte_MatDet");
  const auto ordinary = school.Rows("SELECT * FROM EvaluacionPte");
  const auto result =
      RunScript(school, OpenFinal() + "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdAceptar\n",
                SessionOf(kTutor));
  EXPECT_EQ(school.Rows("SELECT * FROM AlumnoPte_MatDet"), before);
  EXPECT_EQ(school.Rows("SELECT * FROM EvaluacionPte"), ordinary);
  EXPECT_THAT(school.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
  for (const auto& line : Traffic(result.After("pulsar cmdAceptar")))
    EXPECT_TRUE(line.find("UPDATE") == std::string::npos ||
                line.find("UPDATE EvaluacionActaPte SET") != std::string::npos)
        << line;
}

// Step one comes back with what was chosen, and the way can be gone again.
TEST(FinalByStudentSave, SavingGoesBackToStepOneWithItsChoices) {
  const FinalSchool school;
  const auto result = RunScript(school,
                                OpenFinal() +
                                    "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdAceptar\n"
                                    "pulsar cmdNotaManual1(0)\nver\npulsar cmdCancelar\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"), Contains("Francés (1º ESO)|7||||| |0|4"));
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("124"));
  EXPECT_EQ(result.status, 0);
}

TEST(FinalByStudentSave, ClosingWithTheCrossSavesNothingAndGivesEverythingBack) {
  const FinalSchool school;
  const auto before = school.Modulo();
  const auto result = RunScript(school, OpenFinal() + "editar rtvNotasAlumno 1 1 \"7\"\ncerrar\n",
                                SessionOf(kTutor));
  EXPECT_EQ(school.Modulo(), before);
  EXPECT_THAT(Traffic(result.After("cerrar")), ::testing::ElementsAreArray(Leave(kTutor, 1)));
}

}  // namespace
}  // namespace quorvane::test
