#include "tests/selection/StepOne.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

/// What is the same in the four dialogs: who sees which types, courses and sections.
class ListsByRoleTest : public EachDialogTest {
 protected:
  [[nodiscard]] ScriptResult Open(const ScriptOptions& options,
                                  const std::string& commands = "") const {
    return Play(commands + "ver", options);
  }

  /// Choosing a type reads whether it has recoveries in all dialogs but the one by subject.
  std::vector<std::string> Type(std::vector<std::string> statements) const {
    if (dialog_.node == kBySubject.node) std::erase(statements, Sql(expected::kRecoveries, {3}));
    return statements;
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, ListsByRoleTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(ListsByRoleTest, ProfileZeroReadsAllTypesAndCourses) {
  const auto result = Open(Unrestricted());
  EXPECT_THAT(Statements(result.lines),
              ElementsAreArray(
                  Type({Sql(expected::kAllTypes), Sql(expected::kRecoveries, {3}),
                        Sql(expected::kAllCourses, {3}), Sql(expected::kOrdinaryEvaluations)})))
      << result.Text();
  const FormView view(result);
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

TEST_P(ListsByRoleTest, ProfileZeroReadsAllSectionsOfACourse) {
  const auto result = Open(Unrestricted(), "elegir cboCursos =31\n");
  EXPECT_THAT(Statements(result.After("elegir cboCursos =31")),
              ElementsAre(Sql(expected::kAllSections, {31})));
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=311", "B=312"));
  EXPECT_EQ(view.Index("cboSecciones"), -1);
  EXPECT_TRUE(view.Enabled("cboSecciones"));
}

TEST_P(ListsByRoleTest, TheTutorSeesHisSection) {
  const auto result = Open(Tutor(), "elegir cboCursos =32\n");
  EXPECT_THAT(Statements(result.lines),
              ElementsAreArray(Type(
                  {Sql(expected::kStaff, {2}), Sql(expected::kTypes, {1, 1}),
                   Sql(expected::kRecoveries, {3}), Sql(expected::kCourses, {3, 1, 1}),
                   Sql(expected::kOrdinaryEvaluations), Sql(expected::kSections, {32, 1, 1})})));
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), ElementsAre("ESO=3"));
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("2º ESO=32"));
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=321"));
}

TEST_P(ListsByRoleTest, TheTeacherOfAPendingSubjectSeesTheSectionsOfItsStudents) {
  const auto result = Open(Teacher(), "elegir cboCursos =32\n");
  EXPECT_THAT(Statements(result.lines),
              ElementsAreArray(Type(
                  {Sql(expected::kStaff, {3}), Sql(expected::kTypes, {2, 2}),
                   Sql(expected::kRecoveries, {3}), Sql(expected::kCourses, {3, 2, 2}),
                   Sql(expected::kOrdinaryEvaluations), Sql(expected::kSections, {32, 2, 2})})));
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("2º ESO=32"));
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=321"));
}

TEST_P(ListsByRoleTest, ATeacherWithoutPendingSubjectsSeesNothing) {
  school.Sql("DELETE FROM Profesor_Pte");
  const auto result = Open(Teacher());
  EXPECT_THAT(Statements(result.lines),
              ElementsAre(Sql(expected::kStaff, {3}), Sql(expected::kTypes, {2, 2}),
                          Sql(expected::kOrdinaryEvaluations)));
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboTipoEnsenanza"));
}

// Without a row in Personal the types are those of the sections that have no tutor; choosing one
// lists no course.
TEST_P(ListsByRoleTest, AUserWithoutStaffSeesTheTypesOfSectionsWithoutTutorAndNoCourse) {
  const auto result = Open(NoStaff(), "elegir cboTipoEnsenanza =4\n");
  EXPECT_THAT(First(Statements(result.lines), 2),
              ElementsAre(Sql(expected::kStaff, {4}), Sql(expected::kTypes, {0, 0})));
  for (const auto& statement : Statements(result.lines))
    EXPECT_EQ(statement.find("FROM Curso"), std::string::npos) << statement;
  const FormView view(result);
  EXPECT_THAT(view.Entries("cboTipoEnsenanza"), ElementsAre("ESO=3", "Bachillerato=4"));
  EXPECT_THAT(view.Entries("cboCursos"), IsEmpty());
  EXPECT_TRUE(view.Enabled("cboCursos"));
}

TEST_P(ListsByRoleTest, OnlyARestrictedUserIsOfferedTheReservedTypes) {
  school.Sql(
      "INSERT INTO SistemaCalificacion (IDSistemaCalificacion, CodTipoEnsenanza, Recuperaciones) "
      "VALUES (9,1,0); INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (9,9);"
      "INSERT INTO Seccion (IDSeccion, Descripcion, codCurso, CodTutor, CodModelo) "
      "VALUES (901,'Z',90,1,9)");
  EXPECT_THAT(FormView(Open(Tutor())).Entries("cboTipoEnsenanza"),
              ElementsAre("Infantil=1", "ESO=3"));
  EXPECT_THAT(FormView(Open(Unrestricted())).Entries("cboTipoEnsenanza"),
              ElementsAre("ESO=3", "Bachillerato=4"));
}

TEST_P(ListsByRoleTest, ACentreWithoutTypesShowsAnEmptyDialog) {
  school.Sql("DELETE FROM Centro_TipoEnsenanza");
  const auto result = Open(Unrestricted());
  EXPECT_THAT(Statements(result.lines),
              ElementsAre(Sql(expected::kAllTypes), Sql(expected::kOrdinaryEvaluations)));
  EXPECT_FALSE(FormView(result).Enabled("cboTipoEnsenanza"));
  EXPECT_FALSE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(ListsByRoleTest, ATypeWithoutCoursesDisablesTheirList) {
  school.Sql("DELETE FROM Curso WHERE codTipoEnsenanza=4");
  const FormView view(Open(Unrestricted(), "elegir cboTipoEnsenanza =4\n"));
  EXPECT_THAT(view.Entries("cboCursos"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboCursos"));
}

TEST_P(ListsByRoleTest, ACourseWithoutSectionsDisablesTheirList) {
  school.Sql("DELETE FROM Seccion WHERE codCurso=33");
  const FormView view(Open(Unrestricted(), "elegir cboCursos =33\n"));
  EXPECT_THAT(view.Entries("cboSecciones"), IsEmpty());
  EXPECT_FALSE(view.Enabled("cboSecciones"));
}

TEST_P(ListsByRoleTest, AnotherTypeKeepsTheSectionsAndBarsTheWayOn) {
  const FormView view(Open(Unrestricted(), Choose(dialog_, 1) + "elegir cboTipoEnsenanza =4\n"));
  EXPECT_THAT(view.Entries("cboCursos"), ElementsAre("1º Bachillerato=41"));
  EXPECT_THAT(view.Entries("cboSecciones"), ElementsAre("A=321"));
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
}

TEST_P(ListsByRoleTest, AStaffKeyBeyondSixteenBitsIsAnOverflow) {
  school.Sql("UPDATE Personal SET IDPersonal=40000 WHERE IDPersonal=1");
  const auto result = Open(Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith("6 "))) << result.Text();
}

TEST_P(ListsByRoleTest, NullTextsShowAsEmptyEntries) {
  school.Sql("UPDATE Curso SET Descripcion=NULL WHERE IDCurso=31");
  EXPECT_THAT(FormView(Open(Unrestricted())).Entries("cboCursos"),
              ElementsAre("=31", "2º ESO=32", "3º ESO=33"));
}

}  // namespace
}  // namespace quorvane::test
