#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"
#include "tests/grades/OrdinaryStatements.h"

// The grid of the final evaluations by subject: columns, lists, edits, measures, and what is saved.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

ScriptResult Play(const FinalSchool& school, const std::string& gestures) {
  school.DropPublications();
  return RunScript(school, OpenBySubject(4) + gestures, SessionOf(kTutor));
}

FormView Shown(const FinalSchool& school, const std::string& gestures = "") {
  return FormView(Play(school, gestures + "ver\n"));
}

void ShowMeasures(const FinalSchool& school) { school.Sql("UPDATE Curso SET RE_AC=-1"); }

TEST(FinalBySubjectGrid, EightColumnsUnderOneHeading) {
  const FinalSchool school;
  for (const auto* const gestures : {"", "pulsar cmdSiguiente\n", "lista rtvNotasAlumno 1 1\n"}) {
    const auto form = Shown(school, gestures);
    EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
    EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(3000, 2000, 0, 0, 0, 2000, 0, 0));
    EXPECT_EQ(form.Cells("rtvNotasAlumno").front(),
              "Orden en Sección / Alumno|Nota||||Observación|Medidas Adoptadas|");
  }
}

TEST(FinalBySubjectGrid, MeasuresAreSeenWhereTheCourseHasThem) {
  const FinalSchool school;
  ShowMeasures(school);
  for (const auto* const gestures : {"", "pulsar cmdSiguiente\n", "lista rtvNotasAlumno 1 6\n"})
    EXPECT_THAT(Shown(school, gestures).Widths("rtvNotasAlumno"),
                ElementsAre(3000, 2000, 0, 0, 0, 2000, 2000, 0));
}

TEST(FinalBySubjectGrid, MeasuresThatAreNotSeenCannotBeEdited) {
  const FinalSchool school;
  EXPECT_THAT(Play(school, "lista rtvNotasAlumno 1 6\n").Of("rechazo"),
              ElementsAre(HasSubstr("la columna 6 no se ve")));
}

TEST(FinalBySubjectGrid, MeasuresOfferNothingUntilTheSubjectHasAGrade) {
  const FinalSchool school;
  ShowMeasures(school);
  school.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=1 WHERE CodAlumnoPte_MatDet=4");
  const auto result = Play(school,
                           "lista rtvNotasAlumno 1 6\n"
                           "editar rtvNotasAlumno 1 1 \"7\"\n"
                           "lista rtvNotasAlumno 1 6\n"
                           "editar rtvNotasAlumno 1 1 \" \"\n"
                           "lista rtvNotasAlumno 1 6\n");
  EXPECT_THAT(
      result.Of("lista"),
      ElementsAre("[]", "[[\" \",0],[\"Refuerzo educativo\",1],[\"Adaptación curricular\",2]]",
                  "[]"));
}

// The list spells the text with the accent, the row that is shown again without.
TEST(FinalBySubjectGrid, MeasureIsEditedWhereItIsShownAndSaved) {
  const FinalSchool school;
  ShowMeasures(school);
  const auto result = Play(school,
                           "editar rtvNotasAlumno 1 1 \"7\"\n"
                           "editar rtvNotasAlumno 1 6 \"Adaptación curricular\"\nver\n"
                           "elegir cboMaterias #0\nver\npulsar cmdAceptar\n");
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").back(),
            "1   Abad Rey, Jorge|7|||||Adaptación curricular|3");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(),
            "1   Abad Rey, Jorge|7|||||Adaptacion curricular|3");
  EXPECT_EQ(school.Stored(4, 4), "107|0|2|-1|-1");
}

// The list is empty by then: no entry takes the measure away.
TEST(FinalBySubjectGrid, MeasureOfASubjectWithoutAGradeIsTakenAwayByNoEntry) {
  const FinalSchool school;
  ShowMeasures(school);
  school.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=1 WHERE CodAlumnoPte_MatDet=4");
  static_cast<void>(Play(school, "editar rtvNotasAlumno 1 6 nada\npulsar cmdAceptar\n"));
  EXPECT_EQ(school.Stored(4, 4), "0|0|0|0|0");
}

TEST(FinalBySubjectGrid, MeasureCodeBeyondTheTextsIsEmptyAndWrittenBack) {
  const FinalSchool school;
  ShowMeasures(school);
  school.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=3 WHERE CodAlumnoPte_MatDet=4");
  EXPECT_EQ(FormView(Play(school, "ver\npulsar cmdAceptar\n")).Cells("rtvNotasAlumno").back(),
            "1   Abad Rey, Jorge|||||||3");
  EXPECT_EQ(school.Stored(4, 4), "0|0|3|0|0");
}

TEST(FinalBySubjectGrid, ExceptionalGradesAreOffered) {
  const FinalSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota NOT IN (104,110);"
      "UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota IN (104,202)");
  const auto result = Play(school, "lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 1 5\n");
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"10\",110],[\"4\",104]]",
                                              "[[\" \",0],[\"Mejora\",202],[\"Trabaja\",201]]"));
}

// The subject is the chosen entry's, the teachers are its own.
TEST(FinalBySubjectGrid, ListLeavesOutWhatIsOfAnotherScope) {
  const FinalSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>107;"
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111;"
      "UPDATE Nota SET CodModelo=2 WHERE IDNota=100;"
      "UPDATE Nota SET CodCurso=31 WHERE IDNota=101;"
      "UPDATE Nota SET CodNumEvaluacion=5 WHERE IDNota=102;"
      "UPDATE Nota SET CodMateria=1 WHERE IDNota=103;"
      "UPDATE Nota SET CodPersonal=1 WHERE IDNota=104;"
      "UPDATE Nota SET CodMateria=3111, CodPersonal=2 WHERE IDNota=105;"
      "UPDATE Nota SET CodPersonal=3 WHERE IDNota=106;"
      "UPDATE Nota SET CodModelo=1, CodCurso=32, CodNumEvaluacion=4 WHERE IDNota=107");
  EXPECT_THAT(Play(school, "pulsar cmdSiguiente\nlista rtvNotasAlumno 1 1\n").Of("lista"),
              ElementsAre("[[\" \",0],[\"5\",105],[\"6\",106],[\"7\",107]]"));
}

TEST(FinalBySubjectGrid, FirstColumnAndHeadingOfferNothing) {
  const FinalSchool school;
  EXPECT_THAT(Play(school, "lista rtvNotasAlumno 1 0\nlista rtvNotasAlumno 0 1\n").Of("lista"),
              ElementsAre("[]", "[]"));
}

TEST(FinalBySubjectGrid, SystemWithoutAMainGradeShowsTheConceptInItsPlace) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=11");
  const auto form = Shown(school, "pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(3000, 0, 2000, 0, 0, 2000, 0, 0));
  EXPECT_EQ(form.Cells("rtvNotasAlumno").front(),
            "Orden en Sección / Alumno||Nota|||Observación|Medidas Adoptadas|");
}

TEST(FinalBySubjectGrid, ConceptIsLostAtTheSave) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=11");
  const auto result = Play(school,
                           "editar rtvNotasAlumno 1 2 \"7\"\nelegir cboMaterias #0\nver\n"
                           "pulsar cmdAceptar\n");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), "1   Abad Rey, Jorge||7|||| |3");
  EXPECT_EQ(school.Stored(4, 4), "0|0|0|0|0");
}

TEST(FinalBySubjectGrid, ProceduresAttitudesAndConceptsStayHiddenBesideAMainGrade) {
  const FinalSchool school;
  school.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (13,'Conceptos',2,-1,-1,0,-1,10), "
      "(14,'Procedimientos',3,-1,-1,0,-1,10), (15,'Actitudes',4,-1,-1,0,-1,10)");
  for (const auto* const gestures : {"", "pulsar cmdSiguiente\n", "lista rtvNotasAlumno 1 1\n"})
    EXPECT_THAT(Shown(school, gestures).Widths("rtvNotasAlumno"),
                ElementsAre(3000, 2000, 0, 0, 0, 2000, 0, 0));
}

// The widths are kept before the keys are hidden, and restored after it.
TEST(FinalBySubjectGrid, GradeTypeOnTheKeysUncoversThemOnTheWalk) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=7 WHERE IDTipoNota=12");
  EXPECT_EQ(Shown(school).Widths("rtvNotasAlumno").at(7), 0);
  EXPECT_EQ(Shown(school, "pulsar cmdSiguiente\n").Widths("rtvNotasAlumno").at(7), 2000);
}

// Its kept width stands in for the measures' own from the second subject on.
TEST(FinalBySubjectGrid, GradeTypeOnTheMeasuresShowsThemWhateverTheCourseSays) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=6 WHERE IDTipoNota=12");
  for (const auto& [gestures, heading] :
       {std::pair{"", "Observación"}, std::pair{"pulsar cmdSiguiente\n", "Medidas Adoptadas"}}) {
    const auto form = Shown(school, gestures);
    EXPECT_EQ(form.Widths("rtvNotasAlumno").at(6), 2000);
    EXPECT_EQ(form.Cells("rtvNotasAlumno").front(),
              std::string("Orden en Sección / Alumno|Nota|||||") + heading + "|");
  }
}

TEST(FinalBySubjectGrid, EditsStayWhileTheSubjectsAreWalked) {
  const FinalSchool school;
  const auto form = Shown(school,
                          "pulsar cmdSiguiente\neditar rtvNotasAlumno 2 1 \"8\"\n"
                          "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                          "tecla 40\ntecla 38\n");
  EXPECT_THAT(
      form.Cells("rtvNotasAlumno"),
      ElementsAre("Orden en Sección / Alumno|Nota||||Observación|Medidas Adoptadas|",
                  "2   Díaz Cano, Marta|||||Mejora| |1", "3   Ñúñez Sanz, Íñigo|8||||| |2"));
}

TEST(FinalBySubjectGrid, GradeIsTakenAwayWithTheBlankAndWithoutAnEntry) {
  for (const auto* const entry : {"\" \"", "nada"}) {
    const FinalSchool school;
    const auto form = Shown(school, std::string("editar rtvNotasAlumno 1 1 \"8\"\n"
                                                "editar rtvNotasAlumno 1 1 ") +
                                        entry + "\nelegir cboMaterias #0\n");
    EXPECT_EQ(form.Cells("rtvNotasAlumno").back(), "1   Abad Rey, Jorge|||||| |3");
  }
}

TEST(FinalBySubjectGrid, NothingHappensAtTheEndsOfTheWalk) {
  const FinalSchool school;
  const auto index = [&school](const std::string& gestures) {
    return Shown(school, gestures).Index("cboMaterias");
  };
  EXPECT_EQ(index("pulsar cmdAnterior\ntecla 38\n"), 0);
  EXPECT_EQ(index("tecla 40\ntecla 40\ntecla 40\npulsar cmdSiguiente\n"), 2);
  EXPECT_EQ(index("tecla 37\n"), 0);
}

TEST(FinalBySubjectGrid, WidthFollowsTheLongestGradeWhileItIsEdited) {
  const FinalSchool school;
  const auto result = RunScript(school,
                                OpenBySubject(4, "marcar chkMostrar 1\n") +
                                    "lista rtvNotasAlumno 1 5\nver\nlista rtvNotasAlumno 1 1\n"
                                    "ver\n",
                                SessionOf(kTutor));
  // "Trabaja" with twelve blanks, 120 twips a character; then "10" with them.
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(3000, 2000, 0, 0, 0, 19 * 120, 0, 0));
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(3000, 14 * 120, 0, 0, 0, 2000, 0, 0));
}

TEST(FinalBySubjectGrid, FormKeepsItsLeastMeasures) {
  const FinalSchool school;
  const auto result = Play(school, "tamano 100 100\nver\ntamano 12000 9000\nver\n");
  EXPECT_EQ(FormView(result, 1).Width(), 8640);
  EXPECT_EQ(FormView(result, 1).Height(), 6435);
  EXPECT_EQ(FormView(result).Width(), 12000);
  EXPECT_EQ(FormView(result).Height(), 9000);
}

TEST(FinalBySubjectGrid, NothingCanBePickedInTheObservationOrThePromotion) {
  const FinalSchool school;
  school.Sql("UPDATE Curso SET Promocion=1");
  const auto result = Play(school, "elegir cboObservacion #0\nmarcar chkPromocion 1\n");
  EXPECT_EQ(result.Of("rechazo").size(), 2U);
  EXPECT_THAT(result.Of("error"), IsEmpty());
}

TEST(FinalBySubjectGrid, AcceptingWithoutAnEditRewritesEachRow) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=107, CodNotaObservacion=201, RE_AC_DIV=1 WHERE "
      "CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=1;"
      "UPDATE EvaluacionActaPte SET CodNotaObservacion=202, RE_AC_DIV=2, Evaluado=-1, "
      "UltimaEvaluada=-1 WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=2;"
      "UPDATE EvaluacionActaPte SET CodNota=-5 WHERE CodNumEvaluacion=4 AND "
      "CodAlumnoPte_MatDet=3");
  const auto result = Play(school, "pulsar cmdAceptar\nver\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("125"));
  EXPECT_EQ(school.Stored(1, 4), "107|201|1|-1|-1");
  EXPECT_EQ(school.Stored(2, 4), "0|202|2|0|0");
  EXPECT_EQ(school.Stored(3, 4), "-5|0|0|0|0");
}

TEST(FinalBySubjectGrid, SavingTheFirstFinalAfterTheSecondLeavesTheMarkThere) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=5 AND CodAlumnoPte_MatDet=4");
  static_cast<void>(Play(school, "editar rtvNotasAlumno 1 1 \"3\"\npulsar cmdAceptar\n"));
  EXPECT_EQ(school.Stored(4, 4), "103|0|0|-1|0");
  EXPECT_EQ(school.Stored(4, 5), "105|0|0|-1|-1");
}

}  // namespace
}  // namespace quorvane::test
