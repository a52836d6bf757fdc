#include "tests/grades/Statements.h"

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {
namespace {

Lines StepOneLists(const Role& role) {
  const auto person = role.gIDPersonal;
  const auto recoveries = Sql(expected::kRecoveries, {3});
  const auto ordinary = Sql(expected::kOrdinaryEvaluations);
  const auto ofSection = Sql(expected::kEvaluations, {321, 321});
  if (role.unrestricted)
    return {Sql(expected::kAllTypes),          recoveries,
            Sql(expected::kAllCourses, {3}),   ordinary,
            Sql(expected::kAllSections, {32}), ofSection};
  return {Sql(expected::kStaff, {role.user}),
          Sql(expected::kTypes, {person, person}),
          recoveries,
          Sql(expected::kCourses, {3, person, person}),
          ordinary,
          Sql(expected::kSections, {32, person, person}),
          ofSection};
}

}  // namespace

Lines StepOne(const Role& role, int evaluacion) {
  return StepOneLists(role) + Lines{Sql(expected::kFinalOfChosen, {evaluacion}),
                                    SqlOfUsers(expected::kUser, {role.user}),
                                    Sql(expected::kFinalAndOrder, {evaluacion})};
}

Lines FormLoad(const Role& role, int evaluacion) {
  Lines lines = {Sql(expected::kOwnPublication, {role.user, 321, evaluacion}),
                 Sql(expected::kTutor, {role.user, 321})};
  if (role.section)
    lines.push_back(Sql(expected::kStudents, {321}));
  else if (role.gIDPersonal > 0)
    lines.push_back(Sql(expected::kTaughtStudents, {321, evaluacion, role.gIDPersonal}));
  lines.push_back(Sql(expected::kObservationByGrade, {3}));
  return lines;
}

Lines Load(const Role& role, int evaluacion, int student, const std::vector<Subject>& subjects,
           int matDet) {
  Lines lines;
  if (!role.section)
    lines.push_back(
        Sql(expected::kTaughtRows, {student, evaluacion, role.gIDPersonal, evaluacion}));
  else if (matDet == 0)
    lines.push_back(Sql(expected::kRows, {evaluacion, student, evaluacion}));
  else
    lines.push_back(Sql(expected::kRowsOfSubject, {matDet, evaluacion, student, evaluacion}));
  for (const auto& subject : subjects) {
    lines.push_back(Sql(expected::kKindOfSubject, {subject.matDet}));
    lines.push_back(Sql(expected::kGrades, {evaluacion, subject.pending}));
    if (subject.nota > 0) lines.push_back(Sql(expected::kPasses, {subject.nota}));
    lines.push_back(Sql(expected::kTeachers, {subject.matDet}));
    lines.push_back(Sql(expected::kSubjectName, {subject.materia}));
    lines.push_back(Sql(expected::kCourseName, {311}));
  }
  return lines;
}

Lines StudentNames(std::initializer_list<int> students) {
  Lines lines;
  for (const auto student : students) lines.push_back(Sql(expected::kStudentName, {student}));
  return lines;
}

Lines Grids(const Role& role, int evaluacion, bool first, std::initializer_list<long> grades) {
  Lines lines = {Sql(expected::kKindName, {1, 3})};
  if (first) lines.push_back(Sql(expected::kScale, {role.True(), 3}));
  for (const auto grade : grades) lines.push_back(Sql(expected::kGradeText, {grade}));
  return lines + TutorGrid(role, evaluacion);
}

Lines TutorGrid(const Role& role, int evaluacion) {
  return {Sql(expected::kKindName, {3, 3}),
          Sql(expected::kTutorKinds, {3}),
          Sql(expected::kKindOfTutorKind, {31}),
          Sql(expected::kKindOfTutorKind, {51}),
          Sql(expected::kObservations, {321, 32, evaluacion, role.True(), 3}),
          Sql(expected::kKindOfTutorKind, {41})};
}

Lines TakenLocks(const Role& role, int evaluacion, std::initializer_list<long> matDets) {
  Lines lines = {Sql(expected::kLastPublication),
                 Sql(expected::kPublish, {1, role.gIDPersonal, role.user, evaluacion})};
  for (const auto matDet : matDets) {
    lines.push_back(Sql(expected::kHolder, {matDet, evaluacion}));
    lines.push_back(Sql(expected::kLock, {role.gIDPersonal, evaluacion, matDet, role.user, 1}));
  }
  lines.push_back(Sql(expected::kStaff, {role.user}));
  return lines;
}

Lines Locks(const Role& role, int evaluacion, std::initializer_list<long> matDets) {
  return TakenLocks(role, evaluacion, matDets) + Lines{"host ZendriaApi.cCentroApi.notasactivas"};
}

std::string CellList(const Role& role, int evaluacion, int codMateria, int teacher, int column) {
  return Sql(expected::kCellList,
             {321, 32, evaluacion, codMateria, teacher, 0, column, role.True(), 0, role.True(), 3});
}

std::string SaveUngraded(int evaluacion, int pending, const std::vector<long>& others) {
  return Sql(expected::kSaveUngraded,
             {others.at(0), others.at(1), others.at(2), others.at(3), evaluacion, pending});
}

Lines Leave(const Role& role, int publication) {
  return {Sql(expected::kStaffOnLeaving, {role.user}),
          "host ZendriaApi.cCentroApi.DesbloquearNotas", Sql(expected::kUnpublish, {publication}),
          Sql(expected::kUnlock, {publication}), Sql(expected::kUnpublish, {publication})};
}

}  // namespace quorvane::test
