#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <tuple>

#include "tests/grades/FinalForm.h"
#include "tests/support/Matchers.h"
#include "tests/support/Replay.h"
#include "tests/support/TestConnection.h"

// Statements that fail, rows that are missing, values that don't convert, in the four final forms.

namespace quorvane::test {
namespace {

/// A session that uses every statement that saving can take: subject 4 takes the mark, subject 1
/// leaves it to a later evaluation, subject 2 gives it back to an earlier one.
void Prepare(const FinalSchool& school) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=1");
  for (const auto pending : {1, 2}) school.Evalua(pending, 6);
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "(CodNumEvaluacion=6 AND CodAlumnoPte_MatDet=1) OR (CodNumEvaluacion=4 AND "
      "CodAlumnoPte_MatDet=2);"
      "UPDATE NumEvaluacion SET Orden=8 WHERE IDNumEvaluacion=5");
}

/// A session of a form, in as many parts as can be run side by side.
constexpr std::size_t kParts = 4;

class FinalFaultFailureTest : public ::testing::TestWithParam<std::tuple<FinalForm, std::size_t>> {
 protected:
  static const FinalForm& Dialog() { return std::get<0>(GetParam()); }
  static std::string Session() {
    return Dialog().Open(5) +
           "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdSiguiente\npulsar cmdAceptar\n"
           "pulsar cmdNotaManual1(1)\n";
  }
};

TEST_P(FinalFaultFailureTest, OfAnyStatementComesOutAndLeavesWhatWasWritten) {
  const FinalSchool whole;
  Prepare(whole);
  const auto all = Traffic(RunScript(whole, Session(), SessionOf(kTutor)));
  const auto isStatement = [](const auto& line) { return line.starts_with("sql "); };
  const auto statements =
      static_cast<std::size_t>(std::count_if(all.begin(), all.end(), isStatement));
  ASSERT_GT(statements, 40);
  const FinalSchool expected;
  Prepare(expected);
  auto replayed = all.begin();
  for (auto k = std::get<1>(GetParam()); k <= statements; k += FailureStride(kParts)) {
    SCOPED_TRACE("fallo " + std::to_string(k));
    const FinalSchool school;
    Prepare(school);
    const auto result =
        RunScript(school, "fallo " + std::to_string(k) + "\n" + Session(), SessionOf(kTutor));
    ASSERT_EQ(result.status, 1);
    ASSERT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
    ASSERT_THAT(result.Of("mensaje"), IsEmpty());
    const auto traffic = Traffic(result);
    const auto failed = all.begin() + static_cast<std::ptrdiff_t>(traffic.size()) - 1;
    ASSERT_THAT(traffic, ElementsAreArray(all.begin(), failed + 1));
    // All before the one that failed stays written.
    Replay(expected, {replayed, failed});
    replayed = failed;
    ASSERT_EQ(school.Modulo(), expected.Modulo());
    // Once what is left of it is removed the way can be gone again.
    school.DropPublications();
    const auto again = RunScript(school, Dialog().Open(5) + "ver\n", SessionOf(kTutor));
    ASSERT_EQ(again.status, 0) << again.Text();
    ASSERT_GE(FormView(again).Entries(Dialog().combo).size(), 2U);
  }
}

INSTANTIATE_TEST_SUITE_P(Sessions, FinalFaultFailureTest,
                         ::testing::Combine(::testing::ValuesIn(FinalForms()),
                                            ::testing::Range<std::size_t>(1, kParts + 1)),
                         [](const auto& part) {
                           return std::get<0>(part.param).name +
                                  ("Part" + std::to_string(std::get<1>(part.param)));
                         });

TEST(FinalFaultTest, ProgramLivesOnInTheSameRun) {
  const FinalSchool school;
  const auto result = RunScript(school,
                                "fallo 30\n" + kFinalByStudent.Open() + kFinalByStudent.Open() +
                                    "ver\npulsar cmdCancelar\npulsar cmdNotaManual1(1)\n",
                                SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManualFinal");
  EXPECT_THAT(result.Of("vuelve"), Contains("124"));
}

// A save that breaks off leaves the form as it is, shrunk to the animation, and its locks standing.
TEST(FinalFaultTest, SaveThatBreaksOffLeavesTheEarlierSubjectsSaved) {
  const FinalSchool school;
  const auto result = RunScript(
      school,
      kFinalByStudent.Open() + "editar rtvNotasAlumno 1 1 \"7\"\nfallo 4\npulsar cmdAceptar\n",
      SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(school.Stored(4, 4), "107|0|0|-1|-1");
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("3"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("1"));
}

/// A change of the school and what opening comes to: "" for nothing.
struct BadInput {
  const char* name;
  const char* change;
  std::array<const char*, 4> ends;  ///< by form
};

class FinalFaultBadInputTest : public ::testing::TestWithParam<BadInput> {};

TEST_P(FinalFaultBadInputTest, EndsTheLoadOrIsRead) {
  auto expected = GetParam().ends.begin();
  for (const auto& form : FinalForms()) {
    const FinalSchool school;
    school.Sql(GetParam().change);
    const auto result = RunScript(school, form.Open(), SessionOf(kTutor));
    const std::string error = *expected++;
    if (error.empty())
      EXPECT_THAT(result.Of("error"), IsEmpty()) << form.name;
    else
      EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr(error + " "))) << form.name;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Schools, FinalFaultBadInputTest,
    ::testing::Values(
        BadInput{"NullGrades",
                 "UPDATE EvaluacionActaPte SET CodNota=NULL, CodNotaObservacion=NULL, "
                 "RE_AC_DIV=NULL, Evaluado=NULL, UltimaEvaluada=NULL",
                 {"", "", "", ""}},
        BadInput{"MeasureBeyondEightBits",
                 "UPDATE EvaluacionActaPte SET RE_AC_DIV=256",
                 {"6", "6", "6", "6"}},
        BadInput{
            "NegativeMeasure", "UPDATE EvaluacionActaPte SET RE_AC_DIV=-1", {"6", "6", "6", "6"}},
        BadInput{"GradeThatIsNoNumber",
                 "UPDATE EvaluacionActaPte SET CodNota='siete'",
                 {"13", "13", "13", "13"}},
        BadInput{"SectionBeyondSixteenBits",
                 "UPDATE MateriaDetalles SET codSeccion=40000 WHERE "
                 "IDMateriaDetalles IN (3111,3113)",
                 {"6", "6", "", "6"}},
        BadInput{"TeacherThatIsNoNumber",
                 "UPDATE MateriaDetalles SET CodPersonal='Ana'",
                 {"", "13", "13", "13"}},
        BadInput{"SubjectWithoutAName",
                 "DELETE FROM Materia WHERE IDMateria=3",
                 {"3021", "3021", "", ""}},
        BadInput{"StudentWithoutAName",
                 "UPDATE Alumno SET Nombre=NULL, Apellido_1=NULL",
                 {"", "", "", ""}},
        BadInput{
            "PromotionThatIsNoNumber", "UPDATE Curso SET Promocion='si'", {"", "13", "", "13"}},
        BadInput{"NullCourse", "UPDATE Curso SET Promocion=NULL, RE_AC=NULL", {"", "", "", ""}},
        BadInput{"GradeTypeOffTheGrid",
                 "UPDATE TipoNota SET Orden=9 WHERE IDTipoNota=12",
                 {"381", "381", "381", "381"}},
        BadInput{"GradeTypeOnTheLastOfNineColumns",
                 "UPDATE TipoNota SET Orden=8 WHERE IDTipoNota=12",
                 {"", "381", "", "381"}},
        BadInput{"GradeTypeOnTheLastOfEightColumns",
                 "UPDATE TipoNota SET Orden=7 WHERE IDTipoNota=12",
                 {"", "", "", ""}}),
    [](const auto& input) { return input.param.name; });

}  // namespace
}  // namespace quorvane::test
