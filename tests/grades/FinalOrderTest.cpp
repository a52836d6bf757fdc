#include <string>
#include <tuple>
#include <vector>

#include "tests/grades/FinalForm.h"
#include "tests/grades/FinalStatements.h"
#include "tests/support/Matchers.h"

// The whole order of the statements of a session of each final dialog, from step one to the last
// DELETE.

namespace quorvane::test {
namespace {

/// A session that grades row 1 of the first entry, gives an observation to `lastRow` of the next
/// (or of the same, where there is one alone), saves, and leaves step one.
struct Session {
  const char* name;
  FinalForm form;
  Role role;
  int evaluacion;
  int lastRow;
  int matDet;                          ///< the subject that step one chooses, where it does
  Lines (*traffic)(const Role& role);  ///< behind step one
};

void PrintTo(const Session& session, std::ostream* out) {
  *out << session.form.name << session.name;
}

// By student. The teachers of the subjects are read and not taken: the lists compare with 0.
Lines ByStudent(const Role& role) {
  return FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{1, 3111, 1}, {2, 3112, 2}}) +
         FinalLoad(role, 4, 2, {{3, 3111, 1}}) + StudentNames({3, 1, 2}) +
         FinalGrid(role, true, 1) + TakenLocks(role, 4, {3113, 3111, 3112}) +
         Lines{FinalCellList(role, 4, 4, 0, 1)} + FinalGrid(role, false, 2) +
         Lines{FinalCellList(role, 4, 1, 0, 5)} + SaveFinalGraded(role, 4, 4, 107) +
         SaveFinalUngraded(role, 4, 1, 202) + SaveFinalUngraded(role, 4, 2) +
         SaveFinalUngraded(role, 4, 3);
}

Lines TeacherByStudent(const Role& role) {
  return FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{2, 3112, 2}}) + StudentNames({3, 1}) + FinalGrid(role, true, 1) +
         TakenLocks(role, 4, {3113, 3112}) + Lines{FinalCellList(role, 4, 4, 0, 1)} +
         FinalGrid(role, false, 1) + Lines{FinalCellList(role, 4, 2, 0, 5)} +
         SaveFinalGraded(role, 4, 4, 107) + SaveFinalUngraded(role, 4, 2, 202);
}

/// The load of the second final for who sees the section.
Lines SecondLoad(const Role& role) {
  return Lines{FinalRows(role, 5, 3), KindOf(3113), PassedFirst(4)} + FinalGrades(5, {4, 3113, 3}) +
         Lines{FinalRows(role, 5, 1), KindOf(3111), PassedFirst(1), KindOf(3112), PassedFirst(2)} +
         FinalGrades(5, {2, 3112, 2}) + Lines{FinalRows(role, 5, 2), KindOf(3111), PassedFirst(3)};
}

Lines SecondByStudent(const Role& role) {
  return FirstFinal(role) + FinalFormLoad(role, 5) + SecondLoad(role) + StudentNames({3, 1}) +
         FinalGrid(role, true, 1) + TakenLocks(role, 5, {3113, 3112}) +
         Lines{FinalCellList(role, 5, 4, 0, 1)} + FinalGrid(role, false, 1) +
         Lines{FinalCellList(role, 5, 2, 0, 5)} + SaveFinalGraded(role, 5, 4, 107) +
         SaveFinalUngraded(role, 5, 2, 202) + Lines{FinalMarkGivenBack(2)};
}

// By subject: 3113 of student 3, then 3111 of students 1 and 2, which person 2 taught. What is
// saved goes by students.
Lines BySubject(const Role& role) {
  return FinalFormLoad(role, 4) + Lines{FinalCourse()} + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{1, 3111, 1}, {2, 3112, 2}}) +
         FinalLoad(role, 4, 2, {{3, 3111, 1}}) + FinalSubjectGrid(role, true, {3}) +
         TakenLocks(role, 4, {3113, 3111, 3112}) +
         Lines{FinalCellListOfSubject(role, 4, 3113, 0, 1)} +
         FinalSubjectGrid(role, false, {1, 2}) +
         Lines{FinalCellListOfSubject(role, 4, 3111, 2, 5)} + SaveFinalGraded(role, 4, 4, 107) +
         SaveFinalUngraded(role, 4, 1) + SaveFinalUngraded(role, 4, 2) +
         SaveFinalUngraded(role, 4, 3, 202);
}

Lines TeacherBySubject(const Role& role) {
  return FinalFormLoad(role, 4) + Lines{FinalCourse()} + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{2, 3112, 2}}) + FinalSubjectGrid(role, true, {3}) +
         TakenLocks(role, 4, {3113, 3112}) + Lines{FinalCellListOfSubject(role, 4, 3113, 0, 1)} +
         FinalSubjectGrid(role, false, {1}) + Lines{FinalCellListOfSubject(role, 4, 3112, 0, 5)} +
         SaveFinalGraded(role, 4, 4, 107) + SaveFinalUngraded(role, 4, 2, 202);
}

Lines SecondBySubject(const Role& role) {
  return FirstFinal(role) + FinalFormLoad(role, 5) + Lines{FinalCourse()} + SecondLoad(role) +
         FinalSubjectGrid(role, true, {3}) + TakenLocks(role, 5, {3113, 3112}) +
         Lines{FinalCellListOfSubject(role, 5, 3113, 0, 1)} + FinalSubjectGrid(role, false, {1}) +
         Lines{FinalCellListOfSubject(role, 5, 3112, 0, 5)} + SaveFinalGraded(role, 5, 4, 107) +
         SaveFinalUngraded(role, 5, 2, 202) + Lines{FinalMarkGivenBack(2)};
}

// By section and subject: the observation is rebuilt with each student.
Lines Student(const Role& role, bool first) {
  return FinalGrid(role, first, 1) + FinalObservation(role, 4);
}

// Subject 3111, which person 2 teaches: here the lists take him.
Lines SectionByStudent(const Role& role) {
  return FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {}, 3111) +
         FinalLoad(role, 4, 1, {{1, 3111, 1}}, 3111) + FinalLoad(role, 4, 2, {{3, 3111, 1}}, 3111) +
         StudentNames({1, 2}) + Student(role, true) + TakenLocks(role, 4, {3111}) +
         Lines{FinalCellList(role, 4, 3111, 2, 1)} + Student(role, false) +
         Lines{FinalCellList(role, 4, 3111, 2, 5)} + SaveFinalGraded(role, 4, 1, 107) +
         SaveFinalUngraded(role, 4, 3, 202);
}

// He has chosen 3113, which student 1 doesn't have: he gets his other subject of that student too,
// and his save writes it.
Lines TeacherSectionByStudent(const Role& role) {
  return FinalFormLoad(role, 4) + FinalLoad(role, 4, 3, {{4, 3113, 3}}) +
         FinalLoad(role, 4, 1, {{2, 3112, 2}}) + StudentNames({3, 1}) + Student(role, true) +
         TakenLocks(role, 4, {3113, 3112}) + Lines{FinalCellList(role, 4, 3113, 0, 1)} +
         Student(role, false) + Lines{FinalCellList(role, 4, 3112, 0, 5)} +
         SaveFinalGraded(role, 4, 4, 107) + SaveFinalUngraded(role, 4, 2, 202);
}

// By section and student: whoever sees the section has the observation rebuilt at each edit.
Lines Edit(const Role& role, int evaluacion, int matDet, int teacher, int column) {
  return (role.section ? FinalObservation(role, evaluacion, false) : Lines{}) +
         Lines{FinalCellListOfSubject(role, evaluacion, matDet, teacher, column)};
}

Lines SectionBySubject(const Role& role) {
  return FinalFormLoadOf(role, 4, 1) + Lines{FinalCourse()} +
         FinalLoad(role, 4, 1, {{1, 3111, 1}, {2, 3112, 2}}) + FinalSubjectGrid(role, true, {1}) +
         TakenLocks(role, 4, {3111, 3112}) + Edit(role, 4, 3111, 2, 1) +
         FinalSubjectGrid(role, false, {1}) + Edit(role, 4, 3112, 0, 5) +
         SaveFinalGraded(role, 4, 1, 107) + SaveFinalUngraded(role, 4, 2, 202);
}

/// The one subject, 3112, behind the load of it.
Lines OneSubject(const Role& role, int evaluacion) {
  return FinalSubjectGrid(role, true, {1}) + TakenLocks(role, evaluacion, {3112}) +
         Edit(role, evaluacion, 3112, 0, 1) + Edit(role, evaluacion, 3112, 0, 5) +
         SaveFinalGraded(role, evaluacion, 2, 107, 202);
}

Lines TeacherSectionBySubject(const Role& role) {
  return FinalFormLoadOf(role, 4, 1) + Lines{FinalCourse()} +
         FinalLoad(role, 4, 1, {{2, 3112, 2}}) + OneSubject(role, 4);
}

Lines SecondSectionBySubject(const Role& role) {
  return FirstFinal(role) + FinalFormLoadOf(role, 5, 1) +
         Lines{FinalCourse(),  FinalRows(role, 5, 1), KindOf(3111),
               PassedFirst(1), KindOf(3112),          PassedFirst(2)} +
         FinalGrades(5, {2, 3112, 2}) + OneSubject(role, 5);
}

Lines TeacherSecondSectionBySubject(const Role& role) {
  return FirstFinal(role) + FinalFormLoadOf(role, 5, 1) +
         Lines{FinalCourse(), FinalRows(role, 5, 1), KindOf(3112), PassedFirst(2)} +
         FinalGrades(5, {2, 3112, 2}) + OneSubject(role, 5);
}

std::vector<Session> Sessions() {
  const auto& byStudent = kFinalByStudent;
  const auto& bySubject = kFinalBySubject;
  const auto& sectionByStudent = kFinalSectionByStudent;
  const auto& sectionBySubject = kFinalSectionBySubject;
  return {
      {"Unrestricted", byStudent, kUnrestricted, 4, 1, 0, ByStudent},
      {"Tutor", byStudent, kTutor, 4, 1, 0, ByStudent},
      {"Teacher", byStudent, kTeacher, 4, 1, 0, TeacherByStudent},
      {"TutorInSecond", byStudent, kTutor, 5, 1, 0, SecondByStudent},
      {"Unrestricted", bySubject, kUnrestricted, 4, 2, 0, BySubject},
      {"Tutor", bySubject, kTutor, 4, 2, 0, BySubject},
      {"Teacher", bySubject, kTeacher, 4, 1, 0, TeacherBySubject},
      {"TutorInSecond", bySubject, kTutor, 5, 1, 0, SecondBySubject},
      {"Unrestricted", sectionByStudent, kUnrestricted, 4, 1, 3111, SectionByStudent},
      {"Tutor", sectionByStudent, kTutor, 4, 1, 3111, SectionByStudent},
      {"Teacher", sectionByStudent, kTeacher, 4, 1, 3113, TeacherSectionByStudent},
      {"Unrestricted", sectionBySubject, kUnrestricted, 4, 1, 0, SectionBySubject},
      {"Tutor", sectionBySubject, kTutor, 4, 1, 0, SectionBySubject},
      {"Teacher", sectionBySubject, kTeacher, 4, 1, 0, TeacherSectionBySubject},
      {"TutorInSecond", sectionBySubject, kTutor, 5, 1, 0, SecondSectionBySubject},
      {"TeacherInSecond", sectionBySubject, kTeacher, 5, 1, 0, TeacherSecondSectionBySubject},
  };
}

class FinalOrderTest : public ::testing::TestWithParam<std::tuple<Session, bool>> {};

// In the second final, of what the first graded: pending 4 failed, 1 passed, 2 failed, 3 has none.
TEST_P(FinalOrderTest, StatementsOfASession) {
  const auto& [session, sqlServer] = GetParam();
  const FinalSchool school;
  if (sqlServer) school.FlagsOfSqlServer();
  if (session.evaluacion == 5)
    school.Sql(
        "UPDATE EvaluacionActaPte SET CodNota=CASE CodAlumnoPte_MatDet WHEN 1 THEN 105 WHEN 3 THEN "
        "0 ELSE 103 END WHERE CodNumEvaluacion=4");
  const auto role = OnEngine(session.role, sqlServer);
  const auto& form = session.form;
  const auto stepOne = form.node == kFinalSectionBySubject.node && session.evaluacion == 5
                           ? StepOneSecondFinalOfStudent(role, role.section ? "1,2,3,4" : "2,4")
                           : form.stepOneTraffic(role, session.evaluacion);
  const auto result = RunScript(school,
                                On(form, session.matDet).Open(session.evaluacion) +
                                    "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdSiguiente\n"
                                    "editar rtvNotasAlumno " +
                                    std::to_string(session.lastRow) +
                                    " 5 \"Mejora\"\npulsar cmdAceptar\npulsar cmdNotaManual1(1)\n",
                                SessionOf(role));
  EXPECT_THAT(Traffic(result), ElementsAreArray(stepOne + session.traffic(role) + Leave(role, 1)));
}

std::string EngineName(bool sqlServer) { return sqlServer ? "SqlServer" : "FileDatabase"; }

INSTANTIATE_TEST_SUITE_P(Sessions, FinalOrderTest,
                         ::testing::Combine(::testing::ValuesIn(Sessions()), ::testing::Bool()),
                         [](const auto& both) {
                           return std::get<0>(both.param).form.name +
                                  (std::get<0>(both.param).name +
                                   EngineName(std::get<1>(both.param)));
                         });

}  // namespace
}  // namespace quorvane::test
