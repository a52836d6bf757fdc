#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"
#include "tests/grades/OrdinaryStatements.h"
#include "tests/support/Replay.h"

// Statements that fail, rows that are missing, values that don't convert, in the four final forms.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Opens the form of that node, where it narrows the section on subject 3111 or on student 1.
std::string OpenNode(int node, int evaluacion) {
  switch (node) {
    case 124:
      return OpenFinal(evaluacion);
    case 125:
      return OpenBySubject(evaluacion);
    case 126:
      return OpenSectionBySubject(evaluacion);
    default:
      return OpenSectionFinal(evaluacion);
  }
}

constexpr int kNodes[] = {124, 125, 126, 127};

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

/// A session by the number of the node, in as many parts as can be run side by side.
struct Part {
  int node;
  int first;
};

constexpr int kParts = 4;

class FinalFailure : public ::testing::TestWithParam<Part> {
 protected:
  static std::string Open() { return OpenNode(GetParam().node, 5); }

  static std::string Session() {
    return Open() +
           "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdSiguiente\npulsar cmdAceptar\n"
           "pulsar cmdNotaManual1(1)\n";
  }
};

TEST_P(FinalFailure, OfAnyStatementComesOutAndLeavesWhatWasWritten) {
  const FinalSchool whole;
  Prepare(whole);
  const auto all = Traffic(RunScript(whole, Session(), SessionOf(kTutor)));
  const auto isStatement = [](const auto& line) { return line.starts_with("sql "); };
  const auto statements = std::count_if(all.begin(), all.end(), isStatement);
  ASSERT_GT(statements, 40);
  const FinalSchool expected;
  Prepare(expected);
  auto replayed = all.begin();
  for (auto k = GetParam().first; k <= statements; k += kParts) {
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
    const auto again = RunScript(school, Open() + "ver\n", SessionOf(kTutor));
    ASSERT_EQ(again.status, 0) << again.Text();
    const auto walkSubjects = GetParam().node == 125 || GetParam().node == 126;
    ASSERT_GE(FormView(again).Entries(walkSubjects ? "cboMaterias" : "cboAlumnos").size(), 2U);
  }
}

std::vector<Part> Parts() {
  std::vector<Part> parts;
  for (const auto node : kNodes)
    for (int first = 1; first <= kParts; ++first) parts.push_back({node, first});
  return parts;
}

INSTANTIATE_TEST_SUITE_P(Sessions, FinalFailure, ::testing::ValuesIn(Parts()),
                         [](const auto& part) {
                           return "Node" + std::to_string(part.param.node) + "Part" +
                                  std::to_string(part.param.first);
                         });

TEST(FinalFault, ProgramLivesOnInTheSameRun) {
  const FinalSchool school;
  const auto result = RunScript(school,
                                "fallo 30\n" + OpenFinal() + OpenFinal() +
                                    "ver\npulsar cmdCancelar\npulsar cmdNotaManual1(1)\n",
                                SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManualFinal");
  EXPECT_THAT(result.Of("vuelve"), Contains("124"));
}

// A save that breaks off leaves the form as it is, shrunk to the animation, and its locks standing.
TEST(FinalFault, SaveThatBreaksOffLeavesTheEarlierSubjectsSaved) {
  const FinalSchool school;
  const auto result = RunScript(
      school, OpenFinal() + "editar rtvNotasAlumno 1 1 \"7\"\nfallo 4\npulsar cmdAceptar\n",
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
  std::array<const char*, 4> ends;  ///< by student, by subject, section by subject, by student
};

class FinalBadInput : public ::testing::TestWithParam<BadInput> {};

TEST_P(FinalBadInput, EndsTheLoadOrIsRead) {
  auto expected = GetParam().ends.begin();
  for (const auto node : kNodes) {
    const FinalSchool school;
    school.Sql(GetParam().change);
    const auto result = RunScript(school, OpenNode(node, 4), SessionOf(kTutor));
    const std::string error = *expected++;
    if (error.empty())
      EXPECT_THAT(result.Of("error"), IsEmpty()) << node;
    else
      EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr(error + " "))) << node;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Schools, FinalBadInput,
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
                 {"6", "6", "6", ""}},
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
            "PromotionThatIsNoNumber", "UPDATE Curso SET Promocion='si'", {"", "13", "13", ""}},
        BadInput{"NullCourse", "UPDATE Curso SET Promocion=NULL, RE_AC=NULL", {"", "", "", ""}},
        BadInput{"GradeTypeOffTheGrid",
                 "UPDATE TipoNota SET Orden=9 WHERE IDTipoNota=12",
                 {"381", "381", "381", "381"}},
        BadInput{"GradeTypeOnTheLastOfNineColumns",
                 "UPDATE TipoNota SET Orden=8 WHERE IDTipoNota=12",
                 {"", "381", "381", ""}},
        BadInput{"GradeTypeOnTheLastOfEightColumns",
                 "UPDATE TipoNota SET Orden=7 WHERE IDTipoNota=12",
                 {"", "", "", ""}}),
    [](const auto& input) { return input.param.name; });

TEST(FinalFault, NullGradesAreSavedAsNone) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=NULL, CodNotaObservacion=NULL, RE_AC_DIV=NULL, "
      "Evaluado=NULL, UltimaEvaluada=NULL WHERE CodNumEvaluacion=4");
  static_cast<void>(RunScript(school, OpenFinal() + "pulsar cmdAceptar\n", SessionOf(kTutor)));
  EXPECT_EQ(school.Stored(4, 4), "0|0|0|0|0");
}

}  // namespace
}  // namespace quorvane::test
