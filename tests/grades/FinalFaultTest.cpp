#include <array>
#include <string>

#include "tests/grades/FinalForm.h"
#include "tests/support/Matchers.h"

// Saves that fail, rows that are missing, values that don't convert, in the four final forms.

namespace quorvane::test {
namespace {

// A save that breaks off leaves the form as it is, shrunk to the animation, and its locks standing.
TEST(FinalFaultTest, SaveThatBreaksOffLeavesTheEarlierSubjectsSaved) {
  const FinalSchool school;
  const auto result = RunScript(
      school,
      kFinalByStudent.Open() + "editar rtvNotasAlumno 1 1 \"7\"\nfallo 4\npulsar cmdAceptar\n",
      SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(school.Stored(4, 4), "107|0|0|-1|-1");
  EXPECT_EQ(school.Held(), "1|3");
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
