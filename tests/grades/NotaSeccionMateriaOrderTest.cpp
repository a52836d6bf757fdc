#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// The whole order of the statements of a session by the subjects of a student of a section, from
// step one to the last DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class NotaSeccionMateriaOrder : public ::testing::TestWithParam<bool> {
 protected:
  NotaSeccionMateriaOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, GetParam()); }

  /// Opens on student 1, grades the first subject, goes on to the last, grades it, saves, and
  /// leaves step one.
  Lines Session(const Role& role) const {
    return Traffic(RunScript(school_,
                             OpenSectionBySubject() + "editar rtvNotasAlumno 1 1 \"7\"\n"
                                                      "pulsar cmdSiguiente\n"
                                                      "editar rtvNotasAlumno 1 1 \"3\"\n"
                                                      "pulsar cmdAceptar\n"
                                                      "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }

  GradeSchool school_;
};

// Each subject that is shown begins an edit: the pane of the tutor is filled, and the list of the
// cell that stays current is read.
Lines WholeSection(const Role& role) {
  const auto edit = TutorPane(role, 1) + Lines{CellList(role, 1, 3112, 0, 1)};
  return FormLoadSectionBySubject(role, 1, 1) + Load(role, 1, 1, {{2, 3111, 1}, {1, 3112, 2}}) +
         SubjectGrid(role, true, {{1}}) + TutorPane(role, 1) + LocksUnasked(role, 1, {3111, 3112}) +
         TutorPane(role, 1) + Lines{CellList(role, 1, 3111, 2, 1)} +
         SubjectGrid(role, false, {{1}}) + edit + edit +
         SaveMarked(role, 1, 2, 107, kEqualsBySection) +
         SaveMarked(role, 1, 1, 103, kEqualsBySection) + Leave(role, 1);
}

TEST_P(NotaSeccionMateriaOrder, UnrestrictedUserGradesTheStudent) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role),
              ElementsAreArray(StepOneSectionBySubject(role, 1) + WholeSection(role)));
}

TEST_P(NotaSeccionMateriaOrder, TutorGradesTheStudent) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role),
              ElementsAreArray(StepOneSectionBySubject(role, 1) + WholeSection(role)));
}

// He has one subject of this student: going on shows no other.
TEST_P(NotaSeccionMateriaOrder, TeacherGradesHisOwnSubjectsOfTheStudent) {
  const auto role = As(kTeacher);
  const Lines list = {CellList(role, 1, 3112, 0, 1)};
  EXPECT_THAT(
      Session(role),
      ElementsAreArray(StepOneSectionBySubject(role, 1) + FormLoadSectionBySubject(role, 1, 1) +
                       Load(role, 1, 1, {{1, 3112, 2}}) + SubjectGrid(role, true, {{1}}) +
                       LocksUnasked(role, 1, {3112}) + list + list +
                       SaveMarked(role, 1, 1, 103, kEqualsBySection) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed. The student is
// found all the same, but none of his subjects.
TEST_P(NotaSeccionMateriaOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  const auto unrestricted = As(kUnrestricted);
  auto stepOne = StepOneSectionBySubject(unrestricted, 1);
  *(stepOne.end() - 2) = *(StepOneSectionBySubject(role, 1).end() - 2);
  const auto result = RunScript(
      school_,
      OpenSectionBySubject(1, 1, "sesion usuario=4 perfil=3\n") + "pulsar cmdNotaManual1(1)\n",
      SessionOf(unrestricted));
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(stepOne + FormLoadSectionBySubject(role, 1, 1) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"No existen alumnos o materias para "
                          "calificar\""));
}

INSTANTIATE_TEST_SUITE_P(Engines, NotaSeccionMateriaOrder, ::testing::Bool(),
                         [](const auto& engine) {
                           return engine.param ? "SqlServer" : "FileDatabase";
                         });

}  // namespace
}  // namespace quorvane::test
