#include "tests/selection/StepOne.h"

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
  void ExpectAsked(const ScriptResult& result, Lines statements) const {
    if (dialog_.node == kBySubject.node) std::erase(statements, Sql(kRecoveries, {3}));
    EXPECT_EQ(Statements(result.lines), statements) << result.Text();
  }
  static void ExpectEntries(const ScriptResult& result, const std::string& list,
                            const Lines& entries) {
    EXPECT_EQ(FormView(result).Entries(list), entries) << list;
  }
  /// The list is empty, and can't be opened.
  static void ExpectClosed(const ScriptResult& result, const std::string& list) {
    ExpectEntries(result, list, {});
    EXPECT_FALSE(FormView(result).Enabled(list)) << list;
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, ListsByRoleTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(ListsByRoleTest, ProfileZeroReadsAllTypesAndCourses) {
  const auto result = Open(Unrestricted());
  ExpectAsked(result, {Sql(kAllTypes), Sql(kRecoveries, {3}), Sql(kAllCourses, {3}),
                       Sql(kOrdinaryEvaluations)});
  ExpectEntries(result, "cboTipoEnsenanza", {"ESO=3", "Bachillerato=4"});
  ExpectEntries(result, "cboCursos", {"1º ESO=31", "2º ESO=32", "3º ESO=33"});
  ExpectEntries(result, "cboSecciones", {});
  ExpectEntries(result, "cboEvaluaciones",
                {"1ª Evaluación=1", "2ª Evaluación=2", "3ª Evaluación=3", "Reservada=11"});
  const FormView view(result);
  EXPECT_EQ(view.Index("cboTipoEnsenanza"), 0);
  EXPECT_EQ(view.Index("cboCursos"), -1);
  EXPECT_TRUE(view.Enabled("cmdNotaManual1(1)"));
  ExpectBarred(result);
}

TEST_P(ListsByRoleTest, ProfileZeroReadsAllSectionsOfACourse) {
  const auto result = Open(Unrestricted(), "elegir cboCursos =31\n");
  EXPECT_THAT(AskedBy(result, "elegir cboCursos =31"), ElementsAre(Sql(kAllSections, {31})));
  ExpectEntries(result, "cboSecciones", {"A=311", "B=312"});
  EXPECT_EQ(FormView(result).Index("cboSecciones"), -1);
  EXPECT_TRUE(FormView(result).Enabled("cboSecciones"));
}

// The tutor of the section, and the teacher of a pending subject of its students.
TEST_P(ListsByRoleTest, StaffSeesItsSections) {
  for (const auto& [user, staff, options] :
       {std::tuple(2, 1, Tutor()), std::tuple(3, 2, Teacher())}) {
    SCOPED_TRACE(user);
    const auto result = Open(options, "elegir cboCursos =32\n");
    ExpectAsked(result, {Sql(kStaff, {user}), Sql(kTypes, {staff, staff}), Sql(kRecoveries, {3}),
                         Sql(kCourses, {3, staff, staff}), Sql(kOrdinaryEvaluations),
                         Sql(kSections, {32, staff, staff})});
    ExpectEntries(result, "cboTipoEnsenanza", {"ESO=3"});
    ExpectEntries(result, "cboCursos", {"2º ESO=32"});
    ExpectEntries(result, "cboSecciones", {"A=321"});
  }
}

TEST_P(ListsByRoleTest, ATeacherWithoutPendingSubjectsSeesNothing) {
  school.Sql("DELETE FROM Profesor_Pte");
  const auto result = Open(Teacher());
  ExpectAsked(result, {Sql(kStaff, {3}), Sql(kTypes, {2, 2}), Sql(kOrdinaryEvaluations)});
  ExpectClosed(result, "cboTipoEnsenanza");
}

// Without a row in Personal the types are those of the sections that have no tutor; choosing one
// lists no course.
TEST_P(ListsByRoleTest, AUserWithoutStaffSeesTheTypesOfSectionsWithoutTutorAndNoCourse) {
  const auto result = Open(NoStaff(), "elegir cboTipoEnsenanza =4\n");
  EXPECT_THAT(First(Statements(result.lines), 2),
              ElementsAre(Sql(kStaff, {4}), Sql(kTypes, {0, 0})));
  EXPECT_THAT(Statements(result.lines), Each(Not(HasSubstr("FROM Curso"))));
  ExpectEntries(result, "cboTipoEnsenanza", {"ESO=3", "Bachillerato=4"});
  ExpectEntries(result, "cboCursos", {});
  EXPECT_TRUE(FormView(result).Enabled("cboCursos"));
}

TEST_P(ListsByRoleTest, OnlyARestrictedUserIsOfferedTheReservedTypes) {
  school.Sql(
      "INSERT INTO SistemaCalificacion (IDSistemaCalificacion, CodTipoEnsenanza, Recuperaciones) "
      "VALUES (9,1,0); INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (9,9);"
      "INSERT INTO Seccion (IDSeccion, Descripcion, codCurso, CodTutor, CodModelo) "
      "VALUES (901,'Z',90,1,9)");
  ExpectEntries(Open(Tutor()), "cboTipoEnsenanza", {"Infantil=1", "ESO=3"});
  ExpectEntries(Open(Unrestricted()), "cboTipoEnsenanza", {"ESO=3", "Bachillerato=4"});
}

TEST_P(ListsByRoleTest, ACentreWithoutTypesShowsAnEmptyDialog) {
  school.Sql("DELETE FROM Centro_TipoEnsenanza");
  const auto result = Open(Unrestricted());
  ExpectAsked(result, {Sql(kAllTypes), Sql(kOrdinaryEvaluations)});
  ExpectClosed(result, "cboTipoEnsenanza");
  ExpectBarred(result);
}

TEST_P(ListsByRoleTest, ATypeWithoutCoursesOrACourseWithoutSectionsDisablesTheirList) {
  school.Sql("DELETE FROM Curso WHERE codTipoEnsenanza=4; DELETE FROM Seccion WHERE codCurso=33");
  ExpectClosed(Open(Unrestricted(), "elegir cboTipoEnsenanza =4\n"), "cboCursos");
  ExpectClosed(Open(Unrestricted(), "elegir cboCursos =33\n"), "cboSecciones");
}

TEST_P(ListsByRoleTest, AnotherTypeKeepsTheSectionsAndBarsTheWayOn) {
  const auto result = Open(Unrestricted(), Choose(dialog_, 1) + "elegir cboTipoEnsenanza =4\n");
  ExpectEntries(result, "cboCursos", {"1º Bachillerato=41"});
  ExpectEntries(result, "cboSecciones", {"A=321"});
  ExpectBarred(result);
}

TEST_P(ListsByRoleTest, AStaffKeyBeyondSixteenBitsIsAnOverflow) {
  school.Sql("UPDATE Personal SET IDPersonal=40000 WHERE IDPersonal=1");
  ExpectError(Open(Tutor()), 6);
}

TEST_P(ListsByRoleTest, NullTextsShowAsEmptyEntries) {
  school.Sql("UPDATE Curso SET Descripcion=NULL WHERE IDCurso=31");
  ExpectEntries(Open(Unrestricted()), "cboCursos", {"=31", "2º ESO=32", "3º ESO=33"});
}

}  // namespace
}  // namespace quorvane::test
