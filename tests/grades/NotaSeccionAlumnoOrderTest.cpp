#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// The whole order of the statements of a session by the students of a section, from step one to the
// last DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class NotaSeccionAlumnoOrder : public ::testing::TestWithParam<bool> {
 protected:
  NotaSeccionAlumnoOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  /// Opens, grades the first subject of two students, saves, and leaves step one.
  Lines Session(const Role& role, int matDet) const {
    return Traffic(RunScript(school_,
                             OpenSectionByStudent(1, matDet) + "editar rtvNotasAlumno 1 1 \"7\"\n"
                                                               "pulsar cmdSiguiente\n"
                                                               "editar rtvNotasAlumno 1 1 \"3\"\n"
                                                               "pulsar cmdAceptar\n"
                                                               "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  GradeSchool school_;
};

Lines Student(const Role& role, bool first) { return Grids(role, 1, first, {0, 0, 0, 0, 0}); }

// The list of the cell that stays current is read once more as the second student is shown.
Lines WholeSection(const Role& role) {
  const Lines list = {CellList(role, 1, 3111, 2, 1)};
  return FormLoadSectionByStudent(role, 1) + LoadChosen(role, 1, 3, 3111, {}) +
         LoadChosen(role, 1, 1, 3111, {{2, 3111, 1}}) +
         LoadChosen(role, 1, 2, 3111, {{3, 3111, 1}}) + StudentNames({1, 2}) + Student(role, true) +
         LocksUnasked(role, 1, {3111}) + list + Student(role, false) + list + list +
         SaveMarked(role, 1, 2, 107, kEqualsBySection) +
         SaveMarked(role, 1, 3, 103, kEqualsBySection) + Leave(role, 1);
}

TEST_P(NotaSeccionAlumnoOrder, UnrestrictedUserGradesTheSubject) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role, 3111),
              ElementsAreArray(StepOneSectionByStudent(role, 1) + WholeSection(role)));
}

TEST_P(NotaSeccionAlumnoOrder, TutorGradesTheSubject) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role, 3111),
              ElementsAreArray(StepOneSectionByStudent(role, 1) + WholeSection(role)));
}

// He has chosen 3113, which student 1 doesn't have: he gets his other subject of that student.
TEST_P(NotaSeccionAlumnoOrder, TeacherGradesAllHisSubjectsOfTheStudents) {
  const auto role = As(kTeacher);
  const Lines list = {CellList(role, 1, 3112, 0, 1)};
  EXPECT_THAT(Session(role, 3113),
              ElementsAreArray(
                  StepOneSectionByStudent(role, 1) + FormLoadSectionByStudent(role, 1) +
                  Load(role, 1, 3, {{4, 3113, 3}}) + Load(role, 1, 1, {{1, 3112, 2}}) +
                  StudentNames({3, 1}) + Student(role, true) + LocksUnasked(role, 1, {3113, 3112}) +
                  Lines{CellList(role, 1, 3113, 0, 1)} + Student(role, false) + list + list +
                  SaveMarked(role, 1, 4, 107, kEqualsBySection) +
                  SaveMarked(role, 1, 1, 103, kEqualsBySection) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed.
TEST_P(NotaSeccionAlumnoOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  const auto unrestricted = As(kUnrestricted);
  auto stepOne = StepOneSectionByStudent(unrestricted, 1);
  *(stepOne.end() - 2) = *(StepOneSectionByStudent(role, 1).end() - 2);
  const auto result = RunScript(
      school_,
      OpenSectionByStudent(1, 3111, "sesion usuario=4 perfil=3\n") + "pulsar cmdNotaManual1(1)\n",
      SessionOf(unrestricted));
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(stepOne + FormLoadSectionByStudent(role, 1) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"No existen alumnos o materias para "
                          "introducir sus notas\""));
}

INSTANTIATE_TEST_SUITE_P(Engines, NotaSeccionAlumnoOrder, ::testing::Bool(),
                         [](const auto& engine) {
                           return engine.param ? "SqlServer" : "FileDatabase";
                         });

}  // namespace
}  // namespace quorvane::test
