#include <string>
#include <utility>
#include <vector>

#include "tests/grades/FinalForm.h"
#include "tests/support/Matchers.h"

// The grid of the final dialogs: columns, lists, edits, keys and measures.

namespace quorvane::test {
namespace {

using ::testing::Ne;

constexpr const char* kWalk = "pulsar cmdSiguiente\n";

/// Gestures after which the columns have to stand as they did.
constexpr const char* kMoments[] = {"", kWalk, "lista rtvNotasAlumno 1 1\n"};

/// Grade types of `Orden` 2, 3 and 4 beside 1 and 5.
void AddGradeTypes(const FinalSchool& school) {
  school.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (13,'Conceptos',2,-1,-1,0,-1,10), "
      "(14,'Procedimientos',3,-1,-1,0,-1,10), (15,'Actitudes',4,-1,-1,0,-1,10)");
}

class FinalGridTest : public FinalFormTest {
 protected:
  Lines Lists(const std::string& gestures) const { return Play(gestures).Of("lista"); }

  std::vector<int> Widths(const std::string& gestures = "") const {
    return Shown(gestures).Widths("rtvNotasAlumno");
  }

  /// The widths that the form has, with another one.
  std::vector<int> With(std::size_t column, int width) const {
    auto widths = form_.widths;
    widths.at(column) = width;
    return widths;
  }

  std::string Row(const std::string& gestures) const { return Cells(gestures).at(1); }
};

TEST_P(FinalGridTest, ColumnsUnderOneHeading) {
  for (const auto* const gestures : kMoments) {
    const auto form = Shown(gestures);
    EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
    EXPECT_EQ(form.Widths("rtvNotasAlumno"), form_.widths) << gestures;
    EXPECT_EQ(form.Cells("rtvNotasAlumno").front(),
              std::string(gestures) == kWalk ? form_.headingWalked : form_.heading);
  }
}

TEST_P(FinalGridTest, SystemWithoutAMainGradeShowsTheConceptInItsPlace) {
  school_.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=11");
  const auto form = Shown(kWalk);
  auto widths = form_.widths;
  std::swap(widths[1], widths[2]);
  EXPECT_EQ(form.Widths("rtvNotasAlumno"), widths);
  EXPECT_EQ(form.Cells("rtvNotasAlumno").front(), form_.headingConcept);
}

TEST_P(FinalGridTest, ProceduresAttitudesAndConceptsStayHiddenBesideAMainGrade) {
  AddGradeTypes(school_);
  for (const auto* const gestures : kMoments) EXPECT_EQ(Widths(gestures), form_.widths) << gestures;
}

TEST_P(FinalGridTest, LoadedMeasuresAreSpelledWithoutTheAccent) {
  const std::vector<std::string> texts = {" ", "Refuerzo educativo", "Adaptacion curricular", ""};
  for (std::size_t code = 0; code < texts.size(); ++code) {
    school_.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=" + std::to_string(code));
    EXPECT_EQ(Row(""), form_.Row("|||||" + texts[code]));
  }
}

// Only the forms by subject ask the course for them.
TEST_P(FinalGridTest, MeasuresAreSeenWhereTheFormAsksTheCourseAndItHasThem) {
  school_.Sql("UPDATE Curso SET RE_AC=-1, Promocion=1");
  for (const auto* const gestures : {"", kWalk, "lista rtvNotasAlumno 1 6\n"})
    EXPECT_EQ(Widths(gestures), form_.WalksSubjects() ? With(6, 2000) : form_.widths);
}

TEST_P(FinalGridTest, MeasuresThatAreNotSeenCannotBeEdited) {
  if (!form_.WalksSubjects()) school_.Sql("UPDATE Curso SET RE_AC=-1");
  EXPECT_THAT(Play("lista rtvNotasAlumno 1 6\n").Of("rechazo"),
              ElementsAre(HasSubstr("la columna 6 no se ve")));
}

TEST_P(FinalGridTest, ListBeginsWithTheBlankThatTakesAGradeAway) {
  school_.Sql("DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota NOT IN (104,110)");
  EXPECT_THAT(Lists("lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 1 5\n"),
              ElementsAre("[[\" \",0],[\"10\",110],[\"4\",104]]",
                          "[[\" \",0],[\"Mejora\",202],[\"Trabaja\",201]]"));
}

// Grades 100 to 108, each of another scope: model, course, evaluation, the number of a subject or
// key of a row, three teachers, all that the school asks for at once, and an exceptional one.
TEST_P(FinalGridTest, ListLeavesOutWhatIsOfAnotherScope) {
  school_.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>108;"
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111;"
      "UPDATE Nota SET CodModelo=2 WHERE IDNota=100;"
      "UPDATE Nota SET CodCurso=31 WHERE IDNota=101;"
      "UPDATE Nota SET CodNumEvaluacion=5 WHERE IDNota=102;"
      "UPDATE Nota SET CodMateria=1 WHERE IDNota=103;"
      "UPDATE Nota SET CodPersonal=1 WHERE IDNota=104;"
      "UPDATE Nota SET CodMateria=3111, CodPersonal=2 WHERE IDNota=105;"
      "UPDATE Nota SET CodPersonal=3 WHERE IDNota=106;"
      "UPDATE Nota SET CodModelo=1, CodCurso=32, CodNumEvaluacion=4 WHERE IDNota=107;"
      "UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota=108");
  EXPECT_THAT(Lists(std::string(form_.toLengua) + "lista rtvNotasAlumno 1 1\n"),
              ElementsAre(form_.offered));
}

// Also behind an edit of the cell in their column.
TEST_P(FinalGridTest, FirstColumnAndHeadingOfferNothing) {
  EXPECT_THAT(Lists("lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 0 1\n"
                    "lista rtvNotasAlumno 1 0\n"),
              ElementsAre(Ne("[]"), "[]", "[]"));
}

TEST_P(FinalGridTest, FirstColumnIsNamedByTheKindOfSubjectOrForStudents) {
  school_.Sql("UPDATE TipoMateria SET Nombre='Asignatura' WHERE IDTipoMateria=10");
  EXPECT_THAT(Cells().front(), StartsWith(std::string(form_.title) + "|"));
}

TEST_P(FinalGridTest, EditsStayWhileTheEntriesAreWalked) {
  EXPECT_EQ(Row("editar rtvNotasAlumno 1 1 \"8\"\neditar rtvNotasAlumno 1 5 \"Mejora\"\n"
                "pulsar cmdSiguiente\npulsar cmdAnterior\ntecla 40\ntecla 38\n"),
            form_.Row("8||||Mejora| "));
}

TEST_P(FinalGridTest, GradeIsTakenAwayWithTheBlankAndWithoutAnEntry) {
  for (const std::string entry : {"\" \"", "nada"})
    EXPECT_EQ(Row("editar rtvNotasAlumno 1 1 \"8\"\neditar rtvNotasAlumno 1 1 " + entry +
                  "\nelegir " + form_.combo + " #0\n"),
              form_.Row());
}

// "Trabaja" with twelve blanks, 120 twips a character; then "10" with them.
TEST_P(FinalGridTest, WidthFollowsTheLongestGradeWhileItIsEdited) {
  const auto result = PlayBehind("marcar chkMostrar 1\n",
                                 "lista rtvNotasAlumno 1 5\nver\nlista rtvNotasAlumno 1 1\nver\n");
  EXPECT_EQ(FormView(result, 1).Widths("rtvNotasAlumno"), With(5, 19 * 120));
  EXPECT_EQ(FormView(result).Widths("rtvNotasAlumno"), With(1, 14 * 120));
}

TEST_P(FinalGridTest, FormKeepsItsLeastMeasures) {
  const auto result = Play("tamano 100 100\nver\ntamano 12000 9000\nver\n");
  EXPECT_EQ(FormView(result, 1).Width(), 8640);
  EXPECT_EQ(FormView(result, 1).Height(), 6435);
  EXPECT_EQ(FormView(result).Width(), 12000);
  EXPECT_EQ(FormView(result).Height(), 9000);
}

TEST_P(FinalGridTest, NothingCanBePickedInTheObservationOrThePromotion) {
  for (const std::string promotion : {"0", "1"}) {
    school_.Sql("UPDATE Curso SET Promocion=" + promotion);
    const auto result = Play("elegir cboObservacion #0\nmarcar chkPromocion 1\n");
    EXPECT_EQ(result.Of("rechazo").size(), 2U);
    EXPECT_THAT(result.Of("error"), IsEmpty());
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, FinalGridTest, ::testing::ValuesIn(FinalForms()), kNameOfForm);

/// The forms by subject, for a course with measures.
class FinalGridMeasuresTest : public FinalGridTest {
 protected:
  FinalGridMeasuresTest() { school_.Sql("UPDATE Curso SET RE_AC=-1"); }
};

TEST_P(FinalGridMeasuresTest, OfferNothingUntilTheSubjectHasAGrade) {
  Set(form_.pending, "RE_AC_DIV=1");
  EXPECT_THAT(
      Lists("lista rtvNotasAlumno 1 6\neditar rtvNotasAlumno 1 1 \"7\"\n"
            "lista rtvNotasAlumno 1 6\neditar rtvNotasAlumno 1 1 \" \"\n"
            "lista rtvNotasAlumno 1 6\n"),
      ElementsAre("[]", "[[\" \",0],[\"Refuerzo educativo\",1],[\"Adaptación curricular\",2]]",
                  "[]"));
}

// The list spells the text with the accent, the row that is shown again without.
TEST_P(FinalGridMeasuresTest, AreEditedWhereTheyAreShownAndSaved) {
  const auto result = Play(std::string("editar rtvNotasAlumno 1 1 \"7\"\n"
                                       "editar rtvNotasAlumno 1 6 \"Adaptación curricular\"\n"
                                       "ver\nelegir ") +
                           form_.combo + " #0\nver\npulsar cmdAceptar\n");
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").back(),
            form_.Row("7|||||Adaptación curricular"));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(),
            form_.Row("7|||||Adaptacion curricular"));
  EXPECT_EQ(school_.Stored(form_.pending, 4), "107|0|2|-1|-1");
  EXPECT_EQ(school_.Stored(form_.otherPending, 4), "0|0|0|0|0");
}

// The list is empty by then: no entry takes the measure away.
TEST_P(FinalGridMeasuresTest, OfASubjectWithoutAGradeAreTakenAwayByNoEntry) {
  Set(form_.pending, "RE_AC_DIV=1");
  Save("editar rtvNotasAlumno 1 6 nada\n");
  EXPECT_EQ(school_.Stored(form_.pending, 4), "0|0|0|0|0");
}

// The widths are kept before the keys are hidden, and restored after it.
TEST_P(FinalGridMeasuresTest, GradeTypeOnTheKeysUncoversThemOnTheWalk) {
  school_.Sql("UPDATE TipoNota SET Orden=7 WHERE IDTipoNota=12");
  EXPECT_EQ(Widths().at(7), 0);
  EXPECT_EQ(Widths(kWalk).at(7), 2000);
}

// Its kept width stands in for the measures' own from the second subject on.
TEST_P(FinalGridMeasuresTest, GradeTypeOnThemShowsThemWhateverTheCourseSays) {
  school_.Sql("UPDATE Curso SET RE_AC=0; UPDATE TipoNota SET Orden=6 WHERE IDTipoNota=12");
  for (const std::string gestures : {"", kWalk}) {
    const auto form = Shown(gestures);
    EXPECT_EQ(form.Widths("rtvNotasAlumno").at(6), 2000);
    EXPECT_EQ(form.Cells("rtvNotasAlumno").front(),
              std::string("Orden en Sección / Alumno|Nota|||||") +
                  (gestures.empty() ? "Observación" : "Medidas Adoptadas") + "|");
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, FinalGridMeasuresTest, ::testing::ValuesIn(FinalFormsBySubject()),
                         kNameOfForm);

using FinalGridByStudentTest = OneFinalTest<kFinalByStudent>;

TEST_F(FinalGridByStudentTest, KindWithoutASubjectTypeCannotBeShown) {
  school_.Sql("UPDATE TipoMateria SET CodSistemaCalificacion=99 WHERE IDTipoMateria=10");
  EXPECT_THAT(Play("").Of("error"), ElementsAre(HasSubstr("3021 ")));
}

TEST_F(FinalGridByStudentTest, GradeTypesNameTheirColumns) {
  AddGradeTypes(school_);
  for (const auto* const gestures : kMoments)
    EXPECT_EQ(Cells(gestures).front(),
              "Materia|Nota|Conceptos|Procedimientos|Actitudes|Observación|Medidas Adoptadas||");
}

using FinalGridBySubjectTest = OneFinalTest<kFinalBySubject>;

TEST_F(FinalGridBySubjectTest, EditsOfLaterRowsStayWhileTheSubjectsAreWalked) {
  EXPECT_THAT(Cells("pulsar cmdSiguiente\neditar rtvNotasAlumno 2 1 \"8\"\n"
                    "editar rtvNotasAlumno 1 5 \"Mejora\"\ntecla 40\ntecla 38\n"),
              ElementsAre(form_.heading, "2   Díaz Cano, Marta|||||Mejora| |1",
                          "3   Ñúñez Sanz, Íñigo|8||||| |2"));
}

}  // namespace
}  // namespace quorvane::test
