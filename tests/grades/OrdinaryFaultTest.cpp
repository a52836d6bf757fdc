#include <ostream>
#include <tuple>

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/Matchers.h"

// Statements that fail, rows that are missing, values that don't convert, in the four ordinary
// forms.

namespace quorvane::test {
namespace {

struct Missing {
  const char* what;
  const char* statement;
  const char* number;
};

void PrintTo(const Missing& missing, std::ostream* out) { *out << missing.what; }

class OrdinaryMissingTest : public ::testing::TestWithParam<std::tuple<OrdinaryForm, Missing>> {};

TEST_P(OrdinaryMissingTest, RowGivesTheNumberedErrorAndLocksNothing) {
  const auto& [form, missing] = GetParam();
  const GradeSchool school;
  const auto result = RunScript(
      school, form.Open(1, "sql \"" + std::string(missing.statement) + "\"\n") + "ver\n", Tutor());
  EXPECT_EQ(result.status, 1) << result.Text();
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(missing.number)));
  EXPECT_THAT(school.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
}

const auto kNameOfMissing = [](const auto& test) {
  return std::get<0>(test.param).name + std::string(std::get<1>(test.param).what);
};

INSTANTIATE_TEST_SUITE_P(
    Forms, OrdinaryMissingTest,
    ::testing::Combine(
        ::testing::ValuesIn(OrdinaryForms()),
        ::testing::Values(
            Missing{"Usuario", "DELETE FROM Usuario", "3021 "},
            Missing{"Materia", "DELETE FROM Materia WHERE IDMateria=1", "3021 "},
            Missing{"Seccion",
                    "UPDATE MateriaDetalles SET codSeccion=999 WHERE IDMateriaDetalles=3111",
                    "3021 "},
            Missing{"Nota", "UPDATE EvaluacionPte SET CodNota=9999 WHERE CodAlumnoPte_MatDet=2",
                    "3021 "},
            Missing{"SectionBeyond16Bits",
                    "UPDATE MateriaDetalles SET codSeccion=40000 WHERE IDMateriaDetalles=3111",
                    "6 "},
            Missing{"TextForANumber",
                    "UPDATE MateriaDetalles SET CodPersonal='nadie' WHERE IDMateriaDetalles=3111",
                    "13 "},
            Missing{"TextForAGrade",
                    "UPDATE EvaluacionPte SET CodNotaConcepto='bien' WHERE CodAlumnoPte_MatDet=2",
                    "13 "},
            Missing{"GradeBeyond32Bits",
                    "UPDATE EvaluacionPte SET CodNota=3000000000 WHERE CodAlumnoPte_MatDet=2",
                    "6 "},
            Missing{"OrderOfAKindOfGradeOffTheGrid",
                    "UPDATE TipoNota SET Orden=20 WHERE IDTipoNota=12", "381 "})),
    kNameOfMissing);

// Only entry by student reads these while it loads.
INSTANTIATE_TEST_SUITE_P(
    ByStudent, OrdinaryMissingTest,
    ::testing::Combine(
        ::testing::Values(kByStudent),
        ::testing::Values(Missing{"OrderOfAKindOfGradeRightOffTheGrid",
                                  "UPDATE TipoNota SET Orden=8 WHERE IDTipoNota=12", "381 "},
                          Missing{"OrderOfTheTutorsKindOffItsGrid",
                                  "UPDATE TipoNota SET Orden=4 WHERE IDTipoNota=41", "381 "},
                          Missing{"SistemaCalificacion", "DELETE FROM SistemaCalificacion",
                                  "3021 "},
                          Missing{"OrdinaryKind",
                                  "UPDATE TipoMateria SET CodSistemaCalificacion=9 "
                                  "WHERE CodEspecificarTipoMateria=1",
                                  "3021 "})),
    kNameOfMissing);

class OrdinaryValuesTest : public EachFormTest {};

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryValuesTest, ::testing::ValuesIn(OrdinaryForms()),
                         kNameOfForm);

TEST_P(OrdinaryValuesTest, FailureOfTheLastStatementsLeavesTheLocksOfTheForm) {
  const std::string locked = "SELECT CodMatDet FROM BloqueoPte ORDER BY 1";
  Play();
  const auto open = school_.Rows(locked);
  ASSERT_THAT(open, Contains("3111"));
  school_.RemoveLocks();
  // The user's staff row is read first on leaving: nothing has been given back yet.
  Play("fallo 1\npulsar cmdCancelar\n");
  EXPECT_EQ(school_.Rows(locked), open);
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("1"));
}

TEST_P(OrdinaryValuesTest, NullsAreNothing) {
  const auto result = PlayBehind(
      "sql \"UPDATE EvaluacionPte SET CodNota=NULL, "
      "CodNotaActitud=NULL, Evaluado=NULL\"\n"
      "sql \"UPDATE MateriaDetalles SET CodPersonal=NULL, "
      "CodPersonalAsociado=NULL\"\n"
      "sql \"UPDATE AlumnoPte_MatDet SET Orden=NULL\"\n"
      "sql \"UPDATE TipoNota SET Nombre=NULL\"\n",
      form_.toLengua + "ver\nlista rtvNotasAlumno 1 1\npulsar cmdAceptar\n");
  EXPECT_THAT(result.Of("error"), IsEmpty()) << result.Text();
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"), Contains(form_.row));
  EXPECT_EQ(school_.Stored(2, 1), "0|0|0|0|0|NULL|0");
}

TEST_P(OrdinaryValuesTest, NamesMayHoldAnything) {
  school_.Sql(
      "UPDATE Alumno SET Nombre='O''Neil \"Bo\" [x]\t{1}', OrdenSeccion=NULL WHERE "
      "IDAlumno=1;"
      "UPDATE Materia SET Nombre='Física, ''química'' {1}' WHERE IDMateria=1");
  const auto result =
      Play("ver\npulsar cmdSiguiente\nver\npulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_THAT(result.Text(), HasSubstr(R"(Díaz Cano, O'Neil \"Bo\" [x]\t{1})"));
  EXPECT_THAT(result.Text(), HasSubstr("Física, 'química' {1} (1º ESO)"));
}

// Rounds of grading and saving nest: step one opens the form again from inside its own closing.
TEST_P(OrdinaryValuesTest, ManyRoundsNestWithoutHarm) {
  std::string script;
  for (int i = 0; i < 20; ++i)
    script += form_.toLengua + "editar rtvNotasAlumno 1 1 #" + std::to_string(i % 5 + 1) +
              "\npulsar cmdAceptar\npulsar cmdNotaManual1(0)\n";
  const auto result = Play(script + "pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_THAT(result.Of("carga"), SizeIs(22)) << "a fresh form each time";
  EXPECT_EQ(school_.Held(), "0|0");
}

using NotaManualFaultTest = OneFormTest<kByStudent>;

TEST_F(NotaManualFaultTest, SubjectDetailsThatAreGonePurgeAllAndNothingRemains) {
  school_.Sql("DELETE FROM MateriaDetalles");
  const auto result = Play("ver\n", Unrestricted());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_THAT(school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet"), ElementsAre("5"))
      << "the student who has left isn't loaded";
}

TEST_F(NotaManualFaultTest, SubjectWithoutANameIsItsCourseAlone) {
  school_.Sql("UPDATE Materia SET Nombre=NULL");
  EXPECT_EQ(Shown().Cells("rtvNotasAlumno").back(), " (1º ESO)||||||0|4");
}

}  // namespace
}  // namespace quorvane::test
