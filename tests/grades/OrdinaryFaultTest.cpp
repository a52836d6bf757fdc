#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tuple>

#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryFlow.h"
#include "tests/support/Replay.h"

// Statements that fail, rows that are missing, values that don't convert, by subject and in the
// two flows of a section.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// So that saving takes each of its ways as far as the form has the subjects: pending row 2 is
/// graded and takes the mark, 1 leaves it to a later evaluation, 3 gives it to an earlier one.
void Prepare(const GradeSchool& school) {
  school.Evalua(1, 3);
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "(CodNumEvaluacion=3 AND CodAlumnoPte_MatDet=1);"
      "UPDATE EvaluacionPte SET CodNota=105, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
      "CodAlumnoPte_MatDet=3;"
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1 WHERE CodNumEvaluacion=2 AND "
      "CodAlumnoPte_MatDet=1");
}

// Every statement of a session, in as many parts as can be run side by side.
constexpr int kParts = 4;

class OrdinaryFailure : public ::testing::TestWithParam<std::tuple<OrdinaryFlow, int>> {
 protected:
  static const OrdinaryFlow& Flow() { return std::get<0>(GetParam()); }

  static std::string Session() {
    return Flow().open(2, "") + "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\n" +
           "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n";
  }
};

TEST_P(OrdinaryFailure, OfAnyStatementSurfacesAndLeavesWhatWasWritten) {
  const GradeSchool whole;
  Prepare(whole);
  const auto all = Traffic(RunScript(whole, Session(), Tutor()));
  const auto statements =
      std::count_if(all.begin(), all.end(), [](const auto& l) { return l.starts_with("sql "); });
  ASSERT_GT(statements, 55);
  const GradeSchool expected;
  Prepare(expected);
  auto replayed = all.begin();
  for (int k = std::get<1>(GetParam()); k <= statements; k += kParts) {
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
    // Once the locks that remained are removed the form opens again.
    school.Sql("DELETE FROM BloqueoPte; DELETE FROM PublicacionPte");
    ASSERT_EQ(FormView(RunScript(school, Flow().open(2, "") + "ver\n", Tutor())).Form(),
              Flow().form);
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryFailure,
                         ::testing::Combine(::testing::Values(kBySubject, kSectionByStudent,
                                                              kSectionBySubject),
                                            ::testing::Range(1, kParts + 1)),
                         [](const auto& part) {
                           return std::string(std::get<0>(part.param).form) +
                                  std::to_string(std::get<1>(part.param));
                         });

struct Missing {
  const char* what;
  const char* statement;
  const char* number;
};

void PrintTo(const Missing& missing, std::ostream* out) { *out << missing.what; }

class OrdinaryMissing : public ::testing::TestWithParam<std::tuple<OrdinaryFlow, Missing>> {};

TEST_P(OrdinaryMissing, RowGivesTheNumberedErrorAndLocksNothing) {
  const auto& [flow, missing] = GetParam();
  const GradeSchool school;
  const auto result = RunScript(
      school, flow.open(1, "sql \"" + std::string(missing.statement) + "\"\n") + "ver\n", Tutor());
  EXPECT_EQ(result.status, 1) << result.Text();
  EXPECT_THAT(result.Of("error"), ElementsAre(::testing::StartsWith(missing.number)));
  EXPECT_THAT(school.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Forms, OrdinaryMissing,
    ::testing::Combine(
        ::testing::Values(kBySubject, kSectionByStudent, kSectionBySubject),
        ::testing::Values(
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
    [](const auto& test) {
      return std::string(std::get<0>(test.param).form) + std::get<1>(test.param).what;
    });

class OrdinaryValues : public ::testing::TestWithParam<OrdinaryFlow> {};

TEST_P(OrdinaryValues, NullsAreNothing) {
  const GradeSchool school;
  const auto result =
      RunScript(school,
                GetParam().open(1,
                                "sql \"UPDATE EvaluacionPte SET CodNota=NULL, CodNotaActitud=NULL, "
                                "Evaluado=NULL\"\n"
                                "sql \"UPDATE MateriaDetalles SET CodPersonal=NULL, "
                                "CodPersonalAsociado=NULL\"\n"
                                "sql \"UPDATE AlumnoPte_MatDet SET Orden=NULL\"\n"
                                "sql \"UPDATE TipoNota SET Nombre=NULL\"\n") +
                    GetParam().toLengua + "ver\nlista rtvNotasAlumno 1 1\npulsar cmdAceptar\n",
                Tutor());
  EXPECT_THAT(result.Of("error"), IsEmpty()) << result.Text();
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1), GetParam().row);
  EXPECT_EQ(school.Stored(2, 1), "0|0|0|0|0|NULL|0");
}

TEST_P(OrdinaryValues, NamesMayHoldAnything) {
  const GradeSchool school;
  const auto result = RunScript(
      school,
      GetParam().open(1,
                      "sql \"UPDATE Alumno SET Nombre='O''Neil [x] {1}', OrdenSeccion=NULL WHERE "
                      "IDAlumno=1\"\n"
                      "sql \"UPDATE Materia SET Nombre='Física, ''química''' WHERE "
                      "IDMateria=1\"\n") +
          "pulsar cmdSiguiente\nver\npulsar cmdAceptar\npulsar cmdNotaManual1(1)\n",
      Tutor());
  EXPECT_EQ(result.status, 0) << result.Text();
  const auto text = result.Text();
  EXPECT_THAT(text, HasSubstr("Díaz Cano, O'Neil [x] {1}"));
  EXPECT_THAT(text, HasSubstr("Física, 'química' (1º ESO)"));
}

// Rounds of grading and saving nest: step one opens the form again from inside its own closing.
TEST_P(OrdinaryValues, ManyRoundsNestWithoutHarm) {
  const GradeSchool school;
  auto script = GetParam().open(1, "");
  for (int i = 0; i < 10; ++i)
    script += GetParam().toLengua + std::string("editar rtvNotasAlumno 1 1 #") +
              std::to_string(i % 5 + 1) + "\npulsar cmdAceptar\npulsar cmdNotaManual1(0)\n";
  const auto result =
      RunScript(school, script + "pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_EQ(result.Of("carga").size(), 12U) << "a fresh form each time";
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("0"));
}

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryValues,
                         ::testing::Values(kBySubject, kSectionByStudent, kSectionBySubject),
                         [](const auto& flow) { return std::string(flow.param.form); });

}  // namespace
}  // namespace quorvane::test
