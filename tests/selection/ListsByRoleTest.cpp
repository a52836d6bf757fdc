#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

/// What is the same in the four dialogs: who sees which types, courses and sections.
class ListsByRole : public ::testing::TestWithParam<Dialog> {
 protected:
  [[nodiscard]] ScriptResult Open(const ScriptOptions& options,
                                  const std::string& commands = "") const {
    return Play(school, GetParam(), commands + "ver", options);
  }

  /// Choosing a type reads whether it has recoveries in all dialogs but the one by subject.
  static std::vector<std::string> Type(std::vector<std::string> statements) {
    if (GetParam().node == kBySubject.node) std::erase(statements, Fill(kRecoveries, {3}));
    return statements;
  }

  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(StepOne, ListsByRole, ::testing::ValuesIn(kDialogs),
                         [](const auto& dialog) { return std::string(dialog.param.form); });

TEST_P(ListsByRole, ProfileZeroReadsAllTypesAndCourses) {
  const auto result = Open(Unrestricted());
  EXPECT_THAT(Statements(result.lines),
              ElementsAreArray(Type({kTypesUnrestricted, Fill(kRecoveries, {3}),
                                     Fill(kCoursesUnrestricted, {3}), kOrdinaryEvaluations})))
      << result.Text();
  const View view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), ElementsAre("ESO=3", "Bachillerato=4"));
  EXPECT_EQ(view.Index("cboTipoEnsenanza"), 0);
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("1º ESO=31", "2º ESO=32", "3º ESO=33"));
  EXPECT_EQ(view.Index("cboCursos"), -1);
  EXPECT_THAT(view.Entries("cboSecciones"), IsEmpty());
  EXPECT_THAT(view.Entries("cboEvaluaciones"),
              ElementsAre("1ª Evaluación=1", "2ª Evaluación=2", "3ª Evaluación=3", "Reservada=11"));
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
  EXPECT_TRUE(view.Enabled("cmdNotaManual1(1)"));
}

TEST_P(ListsByRole, ProfileZeroReadsAllSectionsOfACourse) {
  const auto result = Open(Unrestricted(), "elegir cboCursos =31\n");
  EXPECT_THAT(Statements(result.After("elegir cboCursos =31")),
              ElementsAre(Fill(kSectionsUnrestricted, {31})));
  const View view(result);
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=311", "B=312"));
  EXPECT_EQ(view.Index("cboSecciones"), -1);
  EXPECT_TRUE(view.Enabled("cboSecciones"));
}

TEST_P(ListsByRole, TheTutorSeesHisSection) {
  const auto result = Open(Tutor(), "elegir cboCursos =32\n");
  EXPECT_THAT(Statements(result.lines),
              ElementsAreArray(Type({Fill(kPersonal, {2}), Fill(kTypes, {1, 1}),
                                     Fill(kRecoveries, {3}), Fill(kCourses, {3, 1, 1}),
                                     kOrdinaryEvaluations, Fill(kSections, {32, 1, 1})})));
  const View view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), ElementsAre("ESO=3"));
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("2º ESO=32"));
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=321"));
}

TEST_P(ListsByRole, TheTeacherOfAPendingSubjectSeesTheSectionsOfItsStudents) {
  const auto result = Open(Teacher(), "elegir cboCursos =32\n");
  EXPECT_THAT(Statements(result.lines),
              ElementsAreArray(Type({Fill(kPersonal, {3}), Fill(kTypes, {2, 2}),
                                     Fill(kRecoveries, {3}), Fill(kCourses, {3, 2, 2}),
                                     kOrdinaryEvaluations, Fill(kSections, {32, 2, 2})})));
  const View view(result);
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("2º ESO=32"));
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=321"));
}

TEST_P(ListsByRole, ATeacherWithoutPendingSubjectsSeesNothing) {
  school.Sql("DELETE FROM Profesor_Pte");
  const auto result = Open(Teacher());
  EXPECT_THAT(Statements(result.lines),
              ElementsAre(Fill(kPersonal, {3}), Fill(kTypes, {2, 2}), kOrdinaryEvaluations));
  const View view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboTipoEnsenanza"));
}

// Without a row in Personal the types are those of the sections that have no tutor; choosing one
// lists no course.
TEST_P(ListsByRole, AUserWithoutStaffSeesTheTypesOfSectionsWithoutTutorAndNoCourse) {
  const auto result = Open(NoStaff(), "elegir cboTipoEnsenanza =4\n");
  EXPECT_THAT(First(Statements(result.lines), 2),
              ElementsAre(Fill(kPersonal, {4}), Fill(kTypes, {0, 0})));
  for (const auto& statement : Statements(result.lines))
    EXPECT_EQ(statement.find("FROM Curso"), std::string::npos) << statement;
  const View view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), ElementsAre("ESO=3", "Bachillerato=4"));
  EXPECT_THAT(view.Entries("cboCursos"), IsEmpty());
  EXPECT_TRUE(view.Enabled("cboCursos"));
}

TEST_P(ListsByRole, OnlyARestrictedUserIsOfferedTheReservedTypes) {
  school.Sql(
      "INSERT INTO SistemaCalificacion (IDSistemaCalificacion, CodTipoEnsenanza, Recuperaciones) "
      "VALUES (9,1,0); INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (9,9);"
      "INSERT INTO Seccion (IDSeccion, Descripcion, codCurso, CodTutor, CodModelo) "
      "VALUES (901,'Z',90,1,9)");
  EXPECT_THAT(View(Open(Tutor())).Entries("cboTipoEnsenanza"), ElementsAre("Infantil=1", "ESO=3"));
  EXPECT_THAT(View(Open(Unrestricted())).Entries("cboTipoEnsenanza"),
              ElementsAre("ESO=3", "Bachillerato=4"));
}

TEST_P(ListsByRole, ACentreWithoutTypesShowsAnEmptyDialog) {
  school.Sql("DELETE FROM Centro_TipoEnsenanza");
  const auto result = Open(Unrestricted());
  EXPECT_THAT(Statements(result.lines), ElementsAre(kTypesUnrestricted, kOrdinaryEvaluations));
  EXPECT_FALSE(View(result).Enabled("cboTipoEnsenanza"));
  EXPECT_FALSE(View(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(ListsByRole, ATypeWithoutCoursesDisablesTheirList) {
  school.Sql("DELETE FROM Curso WHERE codTipoEnsenanza=4");
  const View view(Open(Unrestricted(), "elegir cboTipoEnsenanza =4\n"));
  EXPECT_THAT(view.Entries("cboCursos"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboCursos"));
}

TEST_P(ListsByRole, ACourseWithoutSectionsDisablesTheirList) {
  school.Sql("DELETE FROM Seccion WHERE codCurso=33");
  const View view(Open(Unrestricted(), "elegir cboCursos =33\n"));
  EXPECT_THAT(view.Entries("cboSecciones"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboSecciones"));
}

TEST_P(ListsByRole, AnotherTypeKeepsTheSectionsAndBarsTheWayOn) {
  const View view(Open(Unrestricted(), Choose(GetParam(), 1) + "elegir cboTipoEnsenanza =4\n"));
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("1º Bachillerato=41"));
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=321"));
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(ListsByRole, AStaffKeyBeyondSixteenBitsIsAnOverflow) {
  school.Sql("UPDATE Personal SET IDPersonal=40000 WHERE IDPersonal=1");
  const auto result = Open(Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(::testing::StartsWith("6 "))) << result.Text();
}

TEST_P(ListsByRole, NullTextsShowAsEmptyEntries) {
  school.Sql("UPDATE Curso SET Descripcion=NULL WHERE IDCurso=31");
  EXPECT_THAT(View(Open(Unrestricted())).Entries("cboCursos"),
              ElementsAre("=31", "2º ESO=32", "3º ESO=33"));
}

}  // namespace
}  // namespace quorvane::test
