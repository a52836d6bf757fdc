#include "tests/grades/OrdinaryStatements.h"

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {
namespace {

std::string Start(int node, int evaluacion) {
  return "nodo " + std::to_string(node) +
         "\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
         std::to_string(evaluacion) + "\n";
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

std::string OpenBySubject(int evaluacion, const std::string& before) {
  return Start(125, evaluacion) + before + "pulsar cmdNotaManual1(0)\n";
}

std::string OpenSectionByStudent(int evaluacion, int matDet, const std::string& before) {
  return Start(127, evaluacion) + "elegir cboMateria =" + std::to_string(matDet) + "\n" + before +
         "pulsar cmdNotaManual1(0)\n";
}

std::string OpenSectionBySubject(int evaluacion, int student, const std::string& before) {
  return Start(126, evaluacion) + "elegir cboAlumno =" + std::to_string(student) + "\n" + before +
         "pulsar cmdNotaManual1(0)\n";
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

Lines SubjectGrid(const Role& role, bool first, const std::vector<StudentRow>& rows) {
  Lines lines;
  if (first) lines.push_back(Sql(expected::kScale, {role.True(), 3}));
  for (const auto& row : rows) {
    lines = lines + StudentNames({row.student});
    for (const auto grade : row.grades) lines.push_back(Sql(expected::kGradeText, {grade}));
  }
  return lines;
}

Lines TutorPane(const Role& role, int evaluacion) {
  return role.section ? TutorGrid(role, evaluacion) : Lines{};
}

Lines LeaveUnheard(const Role& role, int publication) {
  return Statements(Leave(role, publication));
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
