#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"

// The scale, the grid and the lists of its cells.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

const std::string kGrades =
    R"([[" ",0],["0",100],["1",101],["10",110],["2",102],["3",103],["4",104],["5",105],)"
    R"(["6",106],["7",107],["8",108],["9",109]])";

std::vector<std::string> Offered(const GradeSchool& school, const std::string& cell = "1 1") {
  return RunScript(school, Open() + "lista rtvNotasAlumno " + cell + "\n", Tutor()).Of("lista");
}

TEST(NotaManualGrid, OnlyTheColumnsOfTheScaleShow) {
  const GradeSchool school;
  school.Sql("UPDATE TipoNota SET Orden=3 WHERE IDTipoNota=12");
  const FormView form(RunScript(school, Open() + "ver\n", Tutor()));
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 2000, 0, 0, 0, 0));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||Observación||||", "Francés (1º ESO)||||||0|4"));
  EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
}

TEST(NotaManualGrid, ScaleIsReadOnceAndLaterStudentsKeepIt) {
  const GradeSchool school;
  const auto result = RunScript(school, Open() + "pulsar cmdSiguiente\nver\n", Tutor());
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno").front(), "Materia|Nota||||Observación||");
  EXPECT_THAT(Traffic(result.After("pulsar cmdSiguiente")),
              Not(Contains(HasSubstr("SELECT DISTINCT Nombre, Orden"))));
}

TEST(NotaManualGrid, KindOfGradeBeyondTheFifthLeavesItsHeadingOnTheFirstStudentAlone) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (16,'Sexta',6,-1,-1,0,-1,10)");
  const auto result = RunScript(school, Open() + "ver\npulsar cmdSiguiente\nver\n", Tutor());
  // The widths that were kept with the scale come back on every student but the first.
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").front(),
            "Materia|Nota||||Observación|Sexta|");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 2000, 0));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").front(), "Materia|Nota||||Observación||");
}

TEST(NotaManualGrid, KindOfGradeOffTheGridIsAnError) {
  const GradeSchool school;
  school.Sql("UPDATE TipoNota SET Orden=8 WHERE IDTipoNota=12");
  EXPECT_THAT(RunScript(school, Open(), Tutor()).Of("error"), ElementsAre(HasSubstr("381 ")));
}

TEST(NotaManualGrid, TypeOfTeachingWithoutAnOrdinaryKindIsAnError) {
  const GradeSchool school;
  school.Sql("UPDATE TipoMateria SET CodSistemaCalificacion=9 WHERE IDTipoMateria=10");
  const auto result = RunScript(school, Open(), Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_THAT(school.Rows("SELECT * FROM BloqueoPte"), IsEmpty()) << "before any lock";
}

TEST(NotaManualGrid, CellOffersABlankEntryAndTheGradesByTheirText) {
  const GradeSchool school;
  EXPECT_THAT(Offered(school), ElementsAre(kGrades));
}

TEST(NotaManualGrid, ListIsReadForEachEditAnew) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                Open() +
                                    "lista rtvNotasAlumno 1 1\n"
                                    "sql \"DELETE FROM Nota WHERE IDNota<110\"\n"
                                    "lista rtvNotasAlumno 1 1\n",
                                Tutor());
  EXPECT_THAT(result.Of("lista"), ElementsAre(kGrades, R"([[" ",0],["10",110]])"));
}

TEST(NotaManualGrid, EachColumnHasItsOwnScale) {
  const GradeSchool school;
  EXPECT_THAT(Offered(school, "1 5"), ElementsAre(R"([[" ",0],["Mejora",202],["Trabaja",201]])"));
}

TEST(NotaManualGrid, EmptyScaleOffersTheBlankEntryAlone) {
  const GradeSchool school;
  school.Sql("DELETE FROM Nota");
  EXPECT_THAT(Offered(school), ElementsAre(R"([[" ",0]])"));
}

TEST(NotaManualGrid, RowZeroAndColumnZeroNeverOpenAList) {
  const GradeSchool school;
  const auto result =
      RunScript(school, Open() + "lista rtvNotasAlumno 0 1\nlista rtvNotasAlumno 1 0\n", Tutor());
  EXPECT_THAT(result.Of("lista"), ElementsAre("[]", "[]"));
  EXPECT_THAT(Traffic(result.After("lista rtvNotasAlumno 0 1")), IsEmpty());
  EXPECT_THAT(Traffic(result.After("lista rtvNotasAlumno 1 0")), IsEmpty());
}

TEST(NotaManualGrid, ColumnOfWidthZeroCannotBeEdited) {
  const GradeSchool school;
  const auto result = RunScript(
      school, Open() + "lista rtvNotasAlumno 1 2\neditar rtvNotasAlumno 1 7 nada\n", Tutor());
  EXPECT_THAT(result.Of("rechazo"), SizeIs(2));
}

TEST(NotaManualGrid, ExceptionalGradesAreNeverOffered) {
  const GradeSchool school;
  school.Sql("UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota>101 AND IDNota<200");
  EXPECT_THAT(Offered(school), ElementsAre(R"([[" ",0],["0",100],["1",101]])"));
}

// Each scope of a grade: 0 for all, the value of this cell, another value.
struct Scope {
  const char* column;
  int here;
  int elsewhere;
};

void PrintTo(const Scope& scope, std::ostream* out) { *out << scope.column << scope.here; }

class NotaManualScope : public ::testing::TestWithParam<Scope> {};

TEST_P(NotaManualScope, GradeIsOfferedWhereItIsGeneralOrOfExactlyThis) {
  const GradeSchool school;
  const auto& scope = GetParam();
  const std::string column = scope.column;
  school.Sql(
      "UPDATE MateriaDetalles SET CodPersonal=2, CodPersonalAsociado=3 WHERE "
      "IDMateriaDetalles=3113;"
      "INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (5,1);"
      "UPDATE Seccion SET CodModelo=5 WHERE IDSeccion=321;"
      "DELETE FROM Nota WHERE IDNota NOT IN (100,101,102);"
      "UPDATE Nota SET " +
      column + "=" + std::to_string(scope.here) + " WHERE IDNota=101; UPDATE Nota SET " + column +
      "=" + std::to_string(scope.elsewhere) + " WHERE IDNota=102");
  EXPECT_THAT(Offered(school), ElementsAre(R"([[" ",0],["0",100],["1",101]])"));
}

// `CodMateria` is compared with the pending row, 4, and not with the subject, 3.
INSTANTIATE_TEST_SUITE_P(Columns, NotaManualScope,
                         ::testing::Values(Scope{"CodModelo", 5, 1}, Scope{"CodCurso", 32, 31},
                                           Scope{"CodNumEvaluacion", 1, 2},
                                           Scope{"CodMateria", 4, 3}, Scope{"CodPersonal", 2, 1},
                                           Scope{"CodPersonal", 3, 4}),
                         [](const auto& scope) {
                           return std::string(scope.param.column) +
                                  std::to_string(scope.param.here);
                         });

TEST(NotaManualGrid, ChosenGradeIsWrittenAndShownAgainForTheSameStudent) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                Open() +
                                    "editar rtvNotasAlumno 1 1 =108\n"
                                    "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                    "pulsar cmdSiguiente\npulsar cmdAnterior\nver\n",
                                Tutor());
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), "Francés (1º ESO)|8||||Mejora|0|4");
  EXPECT_EQ(school.Stored(4, 1), "0|0|0|0|0|0|0") << "nothing is written before saving";
}

TEST(NotaManualGrid, BlankEntryAndNoEntryTakeTheGradeAway) {
  for (const auto* const entry : {"#0", "nada"}) {
    const GradeSchool school;
    school.Sql("UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=4");
    const auto result = RunScript(school,
                                  Open() + "editar rtvNotasAlumno 1 1 " + entry +
                                      "\npulsar cmdSiguiente\npulsar cmdAnterior\nver\n",
                                  Tutor());
    EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), "Francés (1º ESO)||||||0|4")
        << entry;
  }
}

TEST(NotaManualGrid, WidthsStayOnEditingUnlessTheyAreToShowTheWholeGrade) {
  const GradeSchool school;
  school.Sql("UPDATE Nota SET DescripcionCorta='Sobresaliente con matrícula' WHERE IDNota=110");
  const auto result = RunScript(school, Open() + "lista rtvNotasAlumno 1 1\nver\n", Tutor());
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
}

TEST(NotaManualGrid, ColumnGrowsToItsLongestGradeAndStaysSoForTheNextStudents) {
  const GradeSchool school;
  school.Sql("UPDATE Nota SET DescripcionCorta='Sobresaliente con matrícula' WHERE IDNota=110");
  const std::string open =
      "nodo 124\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
      "marcar chkMostrar 1\npulsar cmdNotaManual1(0)\n";
  const auto result =
      RunScript(school,
                open +
                    "lista rtvNotasAlumno 1 1\nver\neditar rtvNotasAlumno 1 1 =107\n"
                    "pulsar cmdSiguiente\nver\neditar rtvNotasAlumno 1 5 =201\nver\n",
                Tutor());
  // 27 letters, 7 and 5 blanks, at 120 twips each.
  const int wide = (27 + 12) * 120;
  EXPECT_THAT(FormView(result, 2).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, (7 + 12) * 120, 0, 0));
}

TEST(NotaManualGrid, BegunEditThatIsGivenUpGivesTheWidthsBackAtTheNextOne) {
  const GradeSchool school;
  const std::string open =
      "nodo 124\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
      "marcar chkMostrar 1\npulsar cmdNotaManual1(0)\n";
  const auto result = RunScript(
      school, open + "lista rtvNotasAlumno 1 5\nver\nlista rtvNotasAlumno 0 1\nver\n", Tutor());
  EXPECT_EQ(FormView(result, 1).Widths("rtvNotasAlumno").at(5), (7 + 12) * 120);
  EXPECT_EQ(FormView(result).Widths("rtvNotasAlumno").at(5), 2000);
}

TEST(NotaManualGrid, ButtonsAndArrowKeysWalkTheStudentsAndStopAtTheEnds) {
  const GradeSchool school;
  const auto at = [&school](const std::string& gestures) {
    school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
    return FormView(RunScript(school, Open() + gestures + "ver\n", Tutor())).Index("cboAlumnos");
  };
  EXPECT_EQ(at("pulsar cmdAnterior\n"), 0);
  EXPECT_EQ(at("pulsar cmdSiguiente\n"), 1);
  EXPECT_EQ(at("tecla 40\ntecla 40\n"), 2);
  EXPECT_EQ(at("tecla 40\ntecla 40\ntecla 40\n"), 2);
  EXPECT_EQ(at("tecla 40\ntecla 38\n"), 0);
  EXPECT_EQ(at("tecla 38\n"), 0);
  EXPECT_EQ(at("tecla 39\n"), 0) << "other keys pass";
}

TEST(NotaManualGrid, TutorPaneIsHeadedAndItsObservationFilled) {
  const GradeSchool school;
  const FormView form(RunScript(school, Open() + "ver\n", Tutor()));
  EXPECT_THAT(form.Cells("rtvNotasTutor"), ElementsAre("Valores y actitudes|Valores|Taller|"));
  EXPECT_THAT(form.Widths("rtvNotasTutor"), ElementsAre(2000, 2000, 2000, 0));
  EXPECT_EQ(form.FixedRows("rtvNotasTutor"), 0);
  EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_EQ(form.Index("cboObservacion"), -1);
}

TEST(NotaManualGrid, TutorPaneWithoutItsKindsIsEmpty) {
  const GradeSchool school;
  school.Sql(
      "DELETE FROM TipoNota WHERE IDTipoNota IN (31,41,51); DELETE FROM TipoMateria WHERE "
      "IDTipoMateria=30");
  const auto result = RunScript(school, Open() + "pulsar cmdSiguiente\nver\n", Tutor());
  const FormView form(result);
  EXPECT_THAT(form.Cells("rtvNotasTutor"), ElementsAre("|||"));
  EXPECT_THAT(form.Widths("rtvNotasTutor"), ElementsAre(2000, 0, 0, 0));
  EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
  EXPECT_FALSE(form.Visible("fraObservacion(0)"));
}

TEST(NotaManualGrid, TutorPaneCannotBeReached) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                Open() +
                                    "elegir cboObservacion #0\nescribir txtAusencias \"3\"\n"
                                    "editar rtvNotasTutor 0 1 nada\npestana tabNotaManual 2\n"
                                    "pestana tabNotaManual 1\nver\n",
                                Tutor());
  EXPECT_THAT(result.Of("rechazo"), SizeIs(4));
  EXPECT_THAT(result.Of("error"), IsEmpty());
  EXPECT_TRUE(FormView(result).Visible("fraNotaManual(0)"));
  EXPECT_FALSE(FormView(result).Visible("fraNotaManual(1)"));
}

TEST(NotaManualGrid, TutorKindOffItsGridIsAnError) {
  const GradeSchool school;
  school.Sql("UPDATE TipoNota SET Orden=4 WHERE IDTipoNota=41");
  EXPECT_THAT(RunScript(school, Open(), Tutor()).Of("error"), ElementsAre(HasSubstr("381 ")));
}

}  // namespace
}  // namespace quorvane::test
