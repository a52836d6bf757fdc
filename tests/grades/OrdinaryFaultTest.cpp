#include <ostream>
#include <tuple>

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"
#include "tests/support/Replay.h"
#include "tests/support/TestConnection.h"

// Statements that fail, rows that are missing, values that don't convert, in the four ordinary
// forms.

namespace quorvane::test {
namespace {

/// So that saving takes each of its ways as far as the form has the subjects: pending row 2 is
/// graded and takes the mark, 1 failed and leaves it to a later evaluation, 3 gives it to an
/// earlier one.
void Prepare(const GradeSchool& school) {
  school.Evalua(1, 3);
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=3 AND CodAlumnoPte_MatDet=1;"
      "UPDATE EvaluacionPte SET CodNota=105, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
      "CodAlumnoPte_MatDet=3;"
      "UPDATE EvaluacionPte SET CodNota=103, Evaluado=-1 WHERE CodNumEvaluacion=2 AND "
      "CodAlumnoPte_MatDet=1");
}

// Every statement of a session, in as many parts as can be run side by side.
constexpr int kShares = 4;

class OrdinaryFailureTest : public ::testing::TestWithParam<std::tuple<OrdinaryForm, int>> {
 protected:
  static const OrdinaryForm& Form() { return std::get<0>(GetParam()); }

  static std::string Session() {
    return Form().Open(2) +
           "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\npulsar cmdAceptar\n"
           "pulsar cmdNotaManual1(1)\n";
  }
};

TEST_P(OrdinaryFailureTest, OfAnyStatementSurfacesAndLeavesWhatWasWritten) {
  const GradeSchool whole;
  Prepare(whole);
  const auto all = Traffic(RunScript(whole, Session(), Tutor()));
  const auto statements = Statements(all).size();
  ASSERT_GT(statements, 55U);
  const GradeSchool expected;
  Prepare(expected);
  auto replayed = all.begin();
  for (auto k = static_cast<std::size_t>(std::get<1>(GetParam())); k <= statements;
       k += FailureStride(kShares)) {
    SCOPED_TRACE("fallo " + std::to_string(k));
    const GradeSchool school;
    Prepare(school);
    const auto result = RunScript(school, "fallo " + std::to_string(k) + "\n" + Session(), Tutor());
    // The error surfaces with its number, and nothing more is executed.
    ASSERT_EQ(result.status, 1);
    ASSERT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
    ASSERT_THAT(result.Of("mensaje"), IsEmpty()) << "a failed insert is no message";
    const auto traffic = Traffic(result);
    const auto failed = all.begin() + static_cast<std::ptrdiff_t>(traffic.size()) - 1;
    ASSERT_THAT(traffic, ElementsAreArray(all.begin(), failed + 1));
    // What was written until then stays: publication, locks, grades.
    Replay(expected, {replayed, failed});
    replayed = failed;
    ASSERT_EQ(school.Modulo(), expected.Modulo());
    // The locks that remained are listed; once they are removed the form opens again.
    ASSERT_EQ(school.Locks(), expected.Locks());
    school.RemoveLocks();
    ASSERT_THAT(school.Locks(), IsEmpty());
    const FormView again(RunScript(school, Form().Open(2) + "ver\n", Tutor()));
    ASSERT_EQ(again.Form(), Form().name);
    ASSERT_THAT(again.Entries(Form().combo), SizeIs(2));
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryFailureTest,
                         ::testing::Combine(::testing::ValuesIn(OrdinaryForms()),
                                            ::testing::Range(1, kShares + 1)),
                         [](const auto& part) {
                           return std::get<0>(part.param).name +
                                  std::to_string(std::get<1>(part.param));
                         });

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
    ::testing::Combine(::testing::Values(kByStudent),
                       ::testing::Values(Missing{"SistemaCalificacion",
                                                 "DELETE FROM SistemaCalificacion", "3021 "},
                                         Missing{"OrdinaryKind",
                                                 "UPDATE TipoMateria SET CodSistemaCalificacion=9 "
                                                 "WHERE CodEspecificarTipoMateria=1",
                                                 "3021 "})),
    kNameOfMissing);

class OrdinaryValuesTest : public EachFormTest {};

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryValuesTest, ::testing::ValuesIn(OrdinaryForms()),
                         kNameOfForm);

TEST_P(OrdinaryValuesTest, ProgramLivesOnAfterAFailure) {
  // The 30th statement is one of the load.
  const auto result = RunScript(school_,
                                "fallo 30\n" + form_.Open() + form_.Open() +
                                    "ver\npulsar cmdCancelar\npulsar cmdNotaManual1(1)\n",
                                Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(FormView(result).Form(), form_.name);
  EXPECT_THAT(result.Of("vuelve"), Contains(std::to_string(form_.node)));
}

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
  const auto result =
      RunScript(school_,
                form_.Open(1,
                           "sql \"UPDATE EvaluacionPte SET CodNota=NULL, "
                           "CodNotaActitud=NULL, Evaluado=NULL\"\n"
                           "sql \"UPDATE MateriaDetalles SET CodPersonal=NULL, "
                           "CodPersonalAsociado=NULL\"\n"
                           "sql \"UPDATE AlumnoPte_MatDet SET Orden=NULL\"\n"
                           "sql \"UPDATE TipoNota SET Nombre=NULL\"\n") +
                    form_.toLengua + "ver\nlista rtvNotasAlumno 1 1\npulsar cmdAceptar\n",
                Tutor());
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
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("0"));
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
