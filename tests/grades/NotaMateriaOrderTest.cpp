#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// The whole order of the statements of a session by subject, from step one to the last DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class NotaMateriaOrder : public ::testing::TestWithParam<bool> {
 protected:
  NotaMateriaOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  /// Opens, grades the first student of two subjects, saves, and leaves step one.
  Lines Session(const Role& role) const {
    return Traffic(RunScript(school_,
                             OpenBySubject() + "editar rtvNotasAlumno 1 1 \"7\"\n"
                                               "pulsar cmdSiguiente\n"
                                               "editar rtvNotasAlumno 1 1 \"3\"\n"
                                               "pulsar cmdAceptar\n"
                                               "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  GradeSchool school_;
};

Lines WholeSection(const Role& role) {
  return FormLoadBySubject(role, 1, 3) + Load(role, 1, 3, {{4, 3113, 3}}) +
         Load(role, 1, 1, {{2, 3111, 1}, {1, 3112, 2}}) + Load(role, 1, 2, {{3, 3111, 1}}) +
         SubjectGrid(role, true, {{3}}) + LocksUnasked(role, 1, {3113, 3111, 3112}) +
         TutorPane(role, 1) + Lines{CellList(role, 1, 3113, 0, 1)} +
         SubjectGrid(role, false, {{1}, {2}}) + TutorPane(role, 1) +
         Lines{CellList(role, 1, 3111, 2, 1)} + SaveMarked(role, 1, 4, 107, kEqualsBySubject) +
         SaveMarked(role, 1, 2, 103, kEqualsBySubject) + SaveNothing(role, 1, 1) +
         SaveNothing(role, 1, 3) + Leave(role, 1);
}

TEST_P(NotaMateriaOrder, UnrestrictedUserGradesTheWholeSection) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role), ElementsAreArray(StepOneBySubject(role, 1) + WholeSection(role)));
}

TEST_P(NotaMateriaOrder, TutorGradesTheWholeSection) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role), ElementsAreArray(StepOneBySubject(role, 1) + WholeSection(role)));
}

TEST_P(NotaMateriaOrder, TeacherGradesHisOwnSubjects) {
  const auto role = As(kTeacher);
  EXPECT_THAT(
      Session(role),
      ElementsAreArray(StepOneBySubject(role, 1) + FormLoadBySubject(role, 1, 2) +
                       Load(role, 1, 3, {{4, 3113, 3}}) + Load(role, 1, 1, {{1, 3112, 2}}) +
                       SubjectGrid(role, true, {{3}}) + LocksUnasked(role, 1, {3113, 3112}) +
                       Lines{CellList(role, 1, 3113, 0, 1)} + SubjectGrid(role, false, {{1}}) +
                       Lines{CellList(role, 1, 3112, 0, 1)} +
                       SaveMarked(role, 1, 4, 107, kEqualsBySubject) +
                       SaveMarked(role, 1, 1, 103, kEqualsBySubject) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed: the only way
// to get this far.
TEST_P(NotaMateriaOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  auto unrestricted = As(kUnrestricted);
  unrestricted.user = 4;
  const auto result = RunScript(
      school_, OpenBySubject(1, "sesion usuario=4 perfil=3\n") + "pulsar cmdNotaManual1(1)\n",
      SessionOf(As(kUnrestricted)));
  EXPECT_THAT(Traffic(result), ElementsAreArray(StepOneBySubject(unrestricted, 1) +
                                                FormLoadBySubject(role, 1, 0) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"No exiten alumnos o materias para "
                          "introducir notas\""));
}

INSTANTIATE_TEST_SUITE_P(Engines, NotaMateriaOrder, ::testing::Bool(), [](const auto& engine) {
  return engine.param ? "SqlServer" : "FileDatabase";
});

}  // namespace
}  // namespace quorvane::test
