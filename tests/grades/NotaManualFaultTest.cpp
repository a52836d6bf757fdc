#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"
#include "tests/support/Replay.h"

// Statements that fail, rows that are missing, values that don't convert.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string kSession =
    "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\neditar rtvNotasAlumno 1 1 =103\n"
    "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n";

// Every statement of a session, in as many parts as can be run side by side.
constexpr int kParts = 4;

class NotaManualFailure : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Parts, NotaManualFailure, ::testing::Range(1, kParts + 1));

TEST_P(NotaManualFailure, OfAnyStatementSurfacesAndLeavesWhatWasWritten) {
  const GradeSchool whole;
  const auto all = Traffic(RunScript(whole, Open() + kSession, Tutor()));
  const auto statements =
      std::count_if(all.begin(), all.end(), [](const auto& l) { return l.starts_with("sql "); });
  ASSERT_GT(statements, 90);
  for (int k = GetParam(); k <= statements; k += kParts) {
    SCOPED_TRACE("fallo " + std::to_string(k));
    const GradeSchool school;
    const GradeSchool expected;
    const auto result =
        RunScript(school, "fallo " + std::to_string(k) + "\n" + Open() + kSession, Tutor());
    // The error surfaces with its number, at the statement that failed.
    ASSERT_EQ(result.status, 1);
    ASSERT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
    ASSERT_THAT(result.Of("mensaje"), IsEmpty()) << "a failed insert is no message";
    auto traffic = Traffic(result);
    // What was written until then stays: publication, locks, grades.
    traffic.pop_back();
    Replay(expected, traffic);
    ASSERT_EQ(school.Modulo(), expected.Modulo());
    // The locks that remained are listed; once they are removed the form opens again.
    ASSERT_EQ(school.Locks(), expected.Locks());
    school.RemoveLocks();
    ASSERT_THAT(school.Locks(), IsEmpty());
    const auto again = RunScript(school, Open() + "ver\n", Tutor());
    ASSERT_EQ(FormView(again).Entries("cboAlumnos").size(), 3U);
  }
}

TEST(NotaManualFault, ProgramLivesOnAfterAFailure) {
  const GradeSchool school;
  // The 30th statement is one of the load.
  const auto result = RunScript(school,
                                "fallo 30\n" + Open() + Open() +
                                    "ver\npulsar cmdCancelar\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual");
  EXPECT_THAT(result.Of("vuelve"), Contains("124"));
}

TEST(NotaManualFault, FailureOfTheLastStatementsLeavesTheLocksOfTheForm) {
  const GradeSchool school;
  // The user's staff row is read first on leaving: nothing has been given back yet.
  RunScript(school, Open() + "fallo 1\npulsar cmdCancelar\n", Tutor());
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte ORDER BY 1"),
              ElementsAre("3111", "3112", "3113"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("1"));
}

struct Missing {
  const char* what;
  const char* statement;
  const char* number;
};

void PrintTo(const Missing& missing, std::ostream* out) { *out << missing.what; }

class NotaManualMissing : public ::testing::TestWithParam<Missing> {};

TEST_P(NotaManualMissing, RowGivesTheNumberedError) {
  const GradeSchool school;
  school.Sql(GetParam().statement);
  const auto result = RunScript(school, Open() + "pulsar cmdAceptar\n", Unrestricted());
  EXPECT_EQ(result.status, 1) << result.Text();
  EXPECT_THAT(result.Of("error"), Contains(HasSubstr(GetParam().number)));
  EXPECT_THAT(school.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, NotaManualMissing,
    ::testing::Values(
        Missing{"SistemaCalificacion", "DELETE FROM SistemaCalificacion", "3021 "},
        Missing{"Usuario", "DELETE FROM Usuario", "3021 "},
        Missing{"TipoMateria1",
                "UPDATE TipoMateria SET CodSistemaCalificacion=9 WHERE "
                "CodEspecificarTipoMateria=1",
                "3021 "},
        Missing{"Materia", "DELETE FROM Materia WHERE IDMateria=2", "3021 "},
        Missing{"Seccion", "UPDATE MateriaDetalles SET codSeccion=999 WHERE codMateria=3", "3021 "},
        Missing{"Nota", "UPDATE EvaluacionPte SET CodNota=9999", "3021 "},
        Missing{"SectionBeyond16Bits",
                "UPDATE MateriaDetalles SET codSeccion=40000 WHERE codMateria=3", "6 "},
        Missing{"TextForANumber", "UPDATE MateriaDetalles SET CodPersonal='nadie'", "13 "}),
    [](const auto& missing) { return std::string(missing.param.what); });

TEST(NotaManualFault, SubjectDetailsThatAreGonePurgeAllAndNothingRemains) {
  const GradeSchool school;
  school.Sql("DELETE FROM MateriaDetalles");
  const auto result = RunScript(school, Open() + "ver\n", Unrestricted());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(HasSubstr("No existen alumnos o materias")));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet"), ElementsAre("5"))
      << "the student who has left isn't loaded";
}

TEST(NotaManualFault, NullsAreNothing) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=NULL, CodNotaActitud=NULL, Evaluado=NULL;"
      "UPDATE MateriaDetalles SET CodPersonal=NULL, CodPersonalAsociado=NULL;"
      "UPDATE Materia SET Nombre=NULL; UPDATE TipoNota SET Nombre=NULL");
  const auto result =
      RunScript(school, Open() + "ver\nlista rtvNotasAlumno 1 1\npulsar cmdAceptar\n", Tutor());
  EXPECT_THAT(result.Of("error"), IsEmpty()) << result.Text();
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), " (1º ESO)||||||0|4");
  EXPECT_EQ(school.Stored(4, 1), "0|0|0|0|0|NULL|0");
}

TEST(NotaManualFault, NamesMayHoldAnything) {
  const GradeSchool school;
  school.Sql(
      "UPDATE Alumno SET Nombre='O''Neil \"Bo\" [x]'||char(9)||'y' WHERE IDAlumno=3;"
      "UPDATE Materia SET Nombre='Física, ''química'' {1}' WHERE IDMateria=3");
  const auto result =
      RunScript(school, Open() + "ver\npulsar cmdAceptar\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").front(), "1   Abad Rey, O'Neil \"Bo\" [x]\ty=3");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(),
            "Física, 'química' {1} (1º ESO)||||||0|4");
}

}  // namespace
}  // namespace quorvane::test
