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

/// What step one of a section asks more than that by student: whether the user is the tutor, and
/// its list in place of the kind of evaluation.
Lines StepOneOfSection(const Role& role, int evaluacion, const std::string& list) {
  auto lines = StepOne(role, evaluacion);
  const auto chosen = lines.end() - 3;
  *chosen = lines.back();
  lines.insert(chosen + 1, list);
  lines.insert(lines.end() - 5, Sql(expected::kTutor, {role.user, 321}));
  return lines;
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

Lines Grids(const Role& role, int evaluacion, bool first, std::size_t subjects) {
  Lines lines = {Sql(expected::kKindName, {1, 3})};
  if (first) lines.push_back(Sql(expected::kScale, {role.True(), 3}));
  return lines + NoGrades(5 * subjects) + TutorGrid(role, evaluacion);
}

Lines NoGrades(std::size_t cells) { return Lines(cells, Sql(expected::kGradeText, {0})); }

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

Lines StepOneBySubject(const Role& role, int evaluacion) {
  auto lines = StepOne(role, evaluacion);
  std::erase(lines, Sql(expected::kRecoveries, {3}));
  return lines;
}

Lines StepOneSectionByStudent(const Role& role, int evaluacion) {
  const auto teacher = role.gIDPersonal;
  return StepOneOfSection(
      role, evaluacion,
      role.section ? Sql(expected::kSubjects, {321, 3, evaluacion, evaluacion})
                   : Sql(expected::kTaughtSubjects, {321, 3, teacher, evaluacion, evaluacion}));
}

Lines StepOneSectionBySubject(const Role& role, int evaluacion) {
  const auto teacher = role.gIDPersonal;
  return StepOneOfSection(
      role, evaluacion,
      role.section
          ? Sql(expected::kRegistered, {321, evaluacion, 321, evaluacion})
          : Sql(expected::kTaughtRegistered, {321, teacher, evaluacion, 321, teacher, evaluacion}));
}

Lines FormLoadBySubject(const Role& role, int evaluacion, int students) {
  auto lines = FormLoad(role, evaluacion);
  lines.insert(lines.end() - 1, static_cast<std::size_t>(students),
               Sql(expected::kSectionFlags, {321}));
  return lines;
}

Lines FormLoadSectionByStudent(const Role& role, int evaluacion) {
  auto lines = FormLoad(role, evaluacion);
  lines.pop_back();
  return lines;
}

Lines FormLoadSectionBySubject(const Role& role, int evaluacion, int student) {
  return First(FormLoad(role, evaluacion), 2) +
         Lines{Sql(expected::kChosenStudent, {student}), Sql(expected::kKindName, {5, 3})};
}

Lines SubjectGrid(const Role& role, bool first, std::initializer_list<int> students) {
  Lines lines;
  if (first) lines.push_back(Sql(expected::kScale, {role.True(), 3}));
  for (const auto student : students) lines = lines + StudentNames({student}) + NoGrades(5);
  return lines;
}

Lines TutorPane(const Role& role, int evaluacion) {
  return role.section ? TutorGrid(role, evaluacion) : Lines{};
}

Lines Purge(int pending) {
  return {Sql(expected::kPurgeGrades, {pending}), Sql(expected::kPurgeFinalGrades, {pending}),
          Sql(expected::kPurgeRow, {pending})};
}

Lines SaveByStudent(int evaluacion, int pending, int nota, bool passes) {
  return {Sql(expected::kPasses, {nota}),
          Sql(passes ? expected::kSavePassed : expected::kSaveFailed, {nota, evaluacion, pending}),
          Sql(expected::kUnmarkByStudent, {evaluacion, pending})};
}

std::string LaterMark(const Role& role, int evaluacion, int pending) {
  return Sql(expected::kLaterMark, {role.True(), evaluacion, pending});
}

std::string EarlierGrade(const Role& role, int evaluacion, int pending) {
  return Sql(expected::kEarlierGrade, {role.True(), evaluacion, pending});
}

Lines SaveBehindTheMark(const Role& role, int evaluacion, int pending, int nota) {
  return {Sql(expected::kPasses, {nota}), Sql(expected::kSaveGraded, {nota, evaluacion, pending}),
          LaterMark(role, evaluacion, pending)};
}

Lines SaveMarked(const Role& role, int evaluacion, int pending, int nota, const char* mark) {
  return SaveBehindTheMark(role, evaluacion, pending, nota) +
         Lines{Sql(mark, {evaluacion, pending}), Sql(expected::kUnmark, {evaluacion, pending})};
}

Lines SaveNothing(const Role& role, int evaluacion, int pending) {
  return {SaveUngraded(evaluacion, pending), LaterMark(role, evaluacion, pending),
          EarlierGrade(role, evaluacion, pending)};
}

}  // namespace quorvane::test
