#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"

// The grid of the final evaluations by student: columns, lists, edits, keys and measures.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

FormView Open(const FinalSchool& school, const std::string& script = "",
              const Role& role = kTutor) {
  return FormView(RunScript(school, OpenFinal() + script + "ver\n", SessionOf(role)));
}

TEST(FinalByStudentGrid, NineColumnsUnderOneHeading) {
  const FinalSchool school;
  const auto form = Open(school);
  EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0, 0));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación|Medidas Adoptadas||",
                          "Francés (1º ESO)|||||| |0|4"));
}

TEST(FinalByStudentGrid, SystemWithoutAMainGradeShowsTheConceptInItsPlace) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=11");
  const auto form = Open(school, "pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 0, 2000, 0, 0, 2000, 0, 0, 0));
  EXPECT_THAT(form.Cells("rtvNotasAlumno").front(),
              "Materia||Nota|||Observación|Medidas Adoptadas||");
}

/// Grade types of `Orden` 2, 3 and 4 beside 1 and 5.
void AddGradeTypes(const FinalSchool& school) {
  school.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (13,'Conceptos',2,-1,-1,0,-1,10), "
      "(14,'Procedimientos',3,-1,-1,0,-1,10), (15,'Actitudes',4,-1,-1,0,-1,10)");
}

TEST(FinalByStudentGrid, ProceduresAttitudesAndConceptsStayHiddenBesideAMainGrade) {
  const FinalSchool school;
  AddGradeTypes(school);
  for (const auto* const script :
       {"", "pulsar cmdSiguiente\n", "pulsar cmdSiguiente\nlista rtvNotasAlumno 1 1\n"}) {
    school.DropPublications();
    const auto form = Open(school, script);
    EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0, 0))
        << script;
    EXPECT_THAT(form.Cells("rtvNotasAlumno").front(),
                "Materia|Nota|Conceptos|Procedimientos|Actitudes|Observación|Medidas Adoptadas||");
  }
}

TEST(FinalByStudentGrid, KindWithoutASubjectTypeCannotBeShown) {
  const FinalSchool school;
  school.Sql("DELETE FROM TipoMateria WHERE IDTipoMateria=10");
  school.Sql(
      "INSERT INTO TipoMateria (IDTipoMateria, Nombre, CodEspecificarTipoMateria, "
      "CodSistemaCalificacion) VALUES (10,'Materia',1,99)");
  const auto result = RunScript(school, OpenFinal(), SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
}

TEST(FinalByStudentGrid, LoadedMeasuresAreSpelledWithoutTheAccent) {
  const FinalSchool school;
  const std::vector<std::pair<int, std::string>> texts = {
      {0, " "}, {1, "Refuerzo educativo"}, {2, "Adaptacion curricular"}, {3, ""}};
  for (const auto& [code, text] : texts) {
    school.DropPublications();
    school.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=" + std::to_string(code));
    EXPECT_EQ(Open(school).Cells("rtvNotasAlumno").back(),
              "Francés (1º ESO)||||||" + text + "|0|4");
  }
}

// `RE_AC` of the course counts for nothing here.
TEST(FinalByStudentGrid, MeasuresAreNeverSeen) {
  const FinalSchool school;
  school.Sql("UPDATE Curso SET RE_AC=-1, Promocion=1");
  const auto result =
      RunScript(school, OpenFinal() + "lista rtvNotasAlumno 1 6\nver\n", SessionOf(kTutor));
  EXPECT_EQ(FormView(result).Widths("rtvNotasAlumno").at(6), 0);
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("la columna 6 no se ve")));
}

TEST(FinalByStudentGrid, ListBeginsWithTheBlankThatTakesAGradeAway) {
  const FinalSchool school;
  school.Sql("DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota NOT IN (104,110)");
  const auto result =
      RunScript(school, OpenFinal() + "lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 1 5\n",
                SessionOf(kTutor));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"10\",110],[\"4\",104]]",
                                              "[[\" \",0],[\"Mejora\",202],[\"Trabaja\",201]]"));
}

// The scope of a grade: model, course, evaluation, the row's key and the teachers, whom this form
// leaves 0, so that a grade of the subject's own teacher isn't offered.
TEST(FinalByStudentGrid, ListLeavesOutWhatIsOfAnotherScope) {
  const FinalSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>106;"
      "UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota=100;"
      "UPDATE Nota SET CodModelo=2 WHERE IDNota=101;"
      "UPDATE Nota SET CodCurso=31 WHERE IDNota=102;"
      "UPDATE Nota SET CodNumEvaluacion=5 WHERE IDNota=103;"
      "UPDATE Nota SET CodMateria=3111 WHERE IDNota=104;"
      "UPDATE Nota SET CodPersonal=2 WHERE IDNota=105;"
      "UPDATE Nota SET CodModelo=1, CodCurso=32, CodNumEvaluacion=4, CodMateria=1 WHERE "
      "IDNota=106");
  const auto result = RunScript(
      school, OpenFinal() + "pulsar cmdSiguiente\nlista rtvNotasAlumno 1 1\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"6\",106]]"));
}

TEST(FinalByStudentGrid, FirstColumnAndHeadingOfferNothing) {
  const FinalSchool school;
  const auto result =
      RunScript(school, OpenFinal() + "lista rtvNotasAlumno 1 0\nlista rtvNotasAlumno 0 1\n",
                SessionOf(kTutor));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[]", "[]"));
}

TEST(FinalByStudentGrid, EditsStayWhileTheStudentsAreWalked) {
  const FinalSchool school;
  const auto form = Open(school,
                         "editar rtvNotasAlumno 1 1 \"8\"\neditar rtvNotasAlumno 1 5 \"Mejora\"\n"
                         "pulsar cmdSiguiente\npulsar cmdAnterior\n");
  EXPECT_THAT(form.Cells("rtvNotasAlumno"), Contains("Francés (1º ESO)|8||||Mejora| |0|4"));
}

TEST(FinalByStudentGrid, GradeIsTakenAwayWithTheBlankAndWithoutAnEntry) {
  for (const auto* const entry : {"\" \"", "nada"}) {
    const FinalSchool school;
    const auto form = Open(school, std::string("editar rtvNotasAlumno 1 1 \"8\"\n"
                                               "editar rtvNotasAlumno 1 1 ") +
                                       entry + "\nelegir cboAlumnos #0\n");
    EXPECT_THAT(form.Cells("rtvNotasAlumno"), Contains("Francés (1º ESO)|||||| |0|4"));
  }
}

TEST(FinalByStudentGrid, ArrowKeysWalkTheStudentsAndNothingHappensAtTheEnds) {
  const FinalSchool school;
  const auto index = [&school](const std::string& script) {
    school.DropPublications();
    return Open(school, script).Index("cboAlumnos");
  };
  EXPECT_EQ(index("tecla 40\n"), 1);
  EXPECT_EQ(index("tecla 40\ntecla 40\ntecla 40\n"), 2);
  EXPECT_EQ(index("tecla 40\ntecla 38\n"), 0);
  EXPECT_EQ(index("tecla 38\npulsar cmdAnterior\n"), 0);
  EXPECT_EQ(index("tecla 37\n"), 0);
}

TEST(FinalByStudentGrid, WidthFollowsTheLongestGradeWhileItIsEdited) {
  const FinalSchool school;
  const auto open = "nodo 124\nmarcar chkMostrar 1\n" + OpenFinal().substr(9);
  const auto result =
      RunScript(school, open + "lista rtvNotasAlumno 1 5\nver\nlista rtvNotasAlumno 1 1\nver\n",
                SessionOf(kTutor));
  // "Trabaja" with twelve blanks, 120 twips a character; then "10" with them.
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 19 * 120, 0, 0, 0));
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 14 * 120, 0, 0, 0, 2000, 0, 0, 0));
}

TEST(FinalByStudentGrid, FormKeepsItsLeastMeasuresAndItsControlsFollow) {
  const FinalSchool school;
  const auto result = RunScript(
      school, OpenFinal() + "tamano 100 100\nver\ntamano 12000 9000\nver\n", SessionOf(kTutor));
  EXPECT_EQ(FormView(result, 1).Width(), 8640);
  EXPECT_EQ(FormView(result, 1).Height(), 6435);
  EXPECT_EQ(FormView(result).Width(), 12000);
  EXPECT_EQ(FormView(result).Height(), 9000);
}

TEST(FinalByStudentGrid, NothingCanBePickedInTheTutorsObservation) {
  const FinalSchool school;
  const auto result = RunScript(
      school, OpenFinal() + "elegir cboObservacion #0\nmarcar chkPromocion 1\n", SessionOf(kTutor));
  EXPECT_EQ(result.Of("rechazo").size(), 2U);
  EXPECT_THAT(result.Of("error"), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
