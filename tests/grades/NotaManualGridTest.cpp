#include "tests/grades/OrdinaryForms.h"
#include "tests/support/Matchers.h"

// The scale, the grid and the lists of its cells.

namespace quorvane::test {
namespace {

const std::string kGrades =
    R"([[" ",0],["0",100],["1",101],["10",110],["2",102],["3",103],["4",104],["5",105],)"
    R"(["6",106],["7",107],["8",108],["9",109]])";

class NotaManualGridTest : public OneFormTest<kByStudent> {
 protected:
  [[nodiscard]] Lines Offered(const std::string& cell = "1 1") const {
    return Play("lista rtvNotasAlumno " + cell + "\n").Of("lista");
  }
  /// Opened so that the whole grade is to show.
  ScriptResult PlayWide(const std::string& gestures) const {
    return RunScript(school_, form_.Open(1, "marcar chkMostrar 1\n") + gestures, Tutor());
  }
};

TEST_F(NotaManualGridTest, OnlyTheColumnsOfTheScaleShow) {
  school_.Sql("UPDATE TipoNota SET Orden=3 WHERE IDTipoNota=12");
  const auto form = Shown();
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 2000, 0, 0, 0, 0));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||Observación||||", "Francés (1º ESO)||||||0|4"));
  EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
}

TEST_F(NotaManualGridTest, ScaleIsReadOnceAndLaterStudentsKeepIt) {
  const auto result = Play("pulsar cmdSiguiente\nver\n");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno").front(), "Materia|Nota||||Observación||");
  EXPECT_THAT(Traffic(result.After("pulsar cmdSiguiente")),
              Not(Contains(HasSubstr("SELECT DISTINCT Nombre, Orden"))));
}

TEST_F(NotaManualGridTest, KindOfGradeBeyondTheFifthLeavesItsHeadingOnTheFirstStudentAlone) {
  school_.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (16,'Sexta',6,-1,-1,0,-1,10)");
  const auto result = Play("ver\npulsar cmdSiguiente\nver\n");
  // The widths that were kept with the scale come back on every student but the first.
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").front(),
            "Materia|Nota||||Observación|Sexta|");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 2000, 0));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").front(), "Materia|Nota||||Observación||");
}

TEST_F(NotaManualGridTest, KindOfGradeOffTheGridIsAnError) {
  school_.Sql("UPDATE TipoNota SET Orden=8 WHERE IDTipoNota=12");
  EXPECT_THAT(Play().Of("error"), ElementsAre(HasSubstr("381 ")));
}

TEST_F(NotaManualGridTest, TypeOfTeachingWithoutAnOrdinaryKindIsAnError) {
  school_.Sql("UPDATE TipoMateria SET CodSistemaCalificacion=9 WHERE IDTipoMateria=10");
  const auto result = Play();
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_THAT(school_.Rows("SELECT * FROM BloqueoPte"), IsEmpty()) << "before any lock";
}

TEST_F(NotaManualGridTest, CellOffersABlankEntryAndTheGradesByTheirText) {
  EXPECT_THAT(Offered(), ElementsAre(kGrades));
}

TEST_F(NotaManualGridTest, ListIsReadForEachEditAnew) {
  const auto result = Play(
      "lista rtvNotasAlumno 1 1\n"
      "sql \"DELETE FROM Nota WHERE IDNota<110\"\n"
      "lista rtvNotasAlumno 1 1\n");
  EXPECT_THAT(result.Of("lista"), ElementsAre(kGrades, R"([[" ",0],["10",110]])"));
}

TEST_F(NotaManualGridTest, EachColumnHasItsOwnScale) {
  EXPECT_THAT(Offered("1 5"), ElementsAre(R"([[" ",0],["Mejora",202],["Trabaja",201]])"));
}

TEST_F(NotaManualGridTest, EmptyScaleOffersTheBlankEntryAlone) {
  school_.Sql("DELETE FROM Nota");
  EXPECT_THAT(Offered(), ElementsAre(R"([[" ",0]])"));
}

TEST_F(NotaManualGridTest, ColumnOfWidthZeroCannotBeEdited) {
  const auto result = Play("lista rtvNotasAlumno 1 2\neditar rtvNotasAlumno 1 7 nada\n");
  EXPECT_THAT(result.Of("rechazo"), SizeIs(2));
}

TEST_F(NotaManualGridTest, ExceptionalGradesAreNeverOffered) {
  school_.Sql("UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota>101 AND IDNota<200");
  EXPECT_THAT(Offered(), ElementsAre(R"([[" ",0],["0",100],["1",101]])"));
}

// Each scope of a grade: 0 for all, the value of this cell, another value.
struct Scope {
  const char* column;
  int here;
  int elsewhere;
};

void PrintTo(const Scope& scope, std::ostream* out) { *out << scope.column << scope.here; }

class NotaManualScopeTest : public NotaManualGridTest,
                            public ::testing::WithParamInterface<Scope> {};

TEST_P(NotaManualScopeTest, GradeIsOfferedWhereItIsGeneralOrOfExactlyThis) {
  const auto& scope = GetParam();
  const std::string column = scope.column;
  school_.Sql(
      "UPDATE MateriaDetalles SET CodPersonal=2, CodPersonalAsociado=3 WHERE "
      "IDMateriaDetalles=3113;"
      "INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (5,1);"
      "UPDATE Seccion SET CodModelo=5 WHERE IDSeccion=321;"
      "DELETE FROM Nota WHERE IDNota NOT IN (100,101,102);"
      "UPDATE Nota SET " +
      column + "=" + std::to_string(scope.here) + " WHERE IDNota=101; UPDATE Nota SET " + column +
      "=" + std::to_string(scope.elsewhere) + " WHERE IDNota=102");
  EXPECT_THAT(Offered(), ElementsAre(R"([[" ",0],["0",100],["1",101]])"));
}

// `CodMateria` is compared with the pending row, 4, and not with the subject, 3.
INSTANTIATE_TEST_SUITE_P(Columns, NotaManualScopeTest,
                         ::testing::Values(Scope{"CodModelo", 5, 1}, Scope{"CodCurso", 32, 31},
                                           Scope{"CodNumEvaluacion", 1, 2},
                                           Scope{"CodMateria", 4, 3}, Scope{"CodPersonal", 2, 1},
                                           Scope{"CodPersonal", 3, 4}),
                         [](const auto& scope) {
                           return std::string(scope.param.column) +
                                  std::to_string(scope.param.here);
                         });

TEST_F(NotaManualGridTest, ChosenGradeIsWrittenAndShownAgainForTheSameStudent) {
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 =108\n"
      "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
      "pulsar cmdSiguiente\npulsar cmdAnterior\nver\n");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), "Francés (1º ESO)|8||||Mejora|0|4");
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|0|0|0") << "nothing is written before saving";
}

TEST_F(NotaManualGridTest, WidthsStayOnEditingUnlessTheyAreToShowTheWholeGrade) {
  school_.Sql("UPDATE Nota SET DescripcionCorta='Sobresaliente con matrícula' WHERE IDNota=110");
  const auto result = Play("lista rtvNotasAlumno 1 1\nver\n");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
}

TEST_F(NotaManualGridTest, ColumnGrowsToItsLongestGradeAndStaysSoForTheNextStudents) {
  school_.Sql("UPDATE Nota SET DescripcionCorta='Sobresaliente con matrícula' WHERE IDNota=110");
  const auto result = PlayWide(
      "lista rtvNotasAlumno 1 1\nver\neditar rtvNotasAlumno 1 1 =107\n"
      "pulsar cmdSiguiente\nver\neditar rtvNotasAlumno 1 5 =201\nver\n");
  // 27 letters, 7 and 5 blanks, at 120 twips each.
  const int wide = (27 + 12) * 120;
  EXPECT_THAT(FormView(result, 2).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, (7 + 12) * 120, 0, 0));
}

TEST_F(NotaManualGridTest, BegunEditThatIsGivenUpGivesTheWidthsBackAtTheNextOne) {
  const auto result = PlayWide("lista rtvNotasAlumno 1 5\nver\nlista rtvNotasAlumno 0 1\nver\n");
  EXPECT_EQ(FormView(result, 1).Widths("rtvNotasAlumno").at(5), (7 + 12) * 120);
  EXPECT_EQ(FormView(result).Widths("rtvNotasAlumno").at(5), 2000);
}

TEST_F(NotaManualGridTest, TutorPaneIsHeadedAndItsObservationFilled) {
  const auto form = Shown();
  EXPECT_THAT(form.Cells("rtvNotasTutor"), ElementsAre("Valores y actitudes|Valores|Taller|"));
  EXPECT_THAT(form.Widths("rtvNotasTutor"), ElementsAre(2000, 2000, 2000, 0));
  EXPECT_EQ(form.FixedRows("rtvNotasTutor"), 0);
  EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_EQ(form.Index("cboObservacion"), -1);
}

TEST_F(NotaManualGridTest, TutorPaneWithoutItsKindsIsEmpty) {
  school_.Sql(
      "DELETE FROM TipoNota WHERE IDTipoNota IN (31,41,51); DELETE FROM TipoMateria WHERE "
      "IDTipoMateria=30");
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Cells("rtvNotasTutor"), ElementsAre("|||"));
  EXPECT_THAT(form.Widths("rtvNotasTutor"), ElementsAre(2000, 0, 0, 0));
  EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
  EXPECT_FALSE(form.Visible("fraObservacion(0)"));
}

TEST_F(NotaManualGridTest, TutorPaneCannotBeReached) {
  const auto result = Play(
      "elegir cboObservacion #0\nescribir txtAusencias \"3\"\n"
      "editar rtvNotasTutor 0 1 nada\npestana tabNotaManual 2\n"
      "pestana tabNotaManual 1\nver\n");
  EXPECT_THAT(result.Of("rechazo"), SizeIs(4));
  EXPECT_THAT(result.Of("error"), IsEmpty());
  EXPECT_TRUE(FormView(result).Visible("fraNotaManual(0)"));
  EXPECT_FALSE(FormView(result).Visible("fraNotaManual(1)"));
}

TEST_F(NotaManualGridTest, TutorKindOffItsGridIsAnError) {
  school_.Sql("UPDATE TipoNota SET Orden=4 WHERE IDTipoNota=41");
  EXPECT_THAT(Play().Of("error"), ElementsAre(HasSubstr("381 ")));
}

}  // namespace
}  // namespace quorvane::test
