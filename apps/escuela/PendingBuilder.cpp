#include "apps/escuela/PendingBuilder.h"

namespace quorvane {
namespace {

constexpr std::size_t kMostPending = 3;

// Places of the columns of the grids.
constexpr std::size_t kMain = 1;
constexpr std::size_t kConcept = 2;
constexpr std::size_t kProcedure = 3;
constexpr std::size_t kAttitude = 4;
constexpr std::size_t kRemark = 5;

}  // namespace

int PendingBuilder::AnyGrade(const MarkingRecord& marking, std::size_t place) {
  const auto& grades = marking.grades[place];
  return grades.empty() ? 0 : random_.OneOf(grades);
}

void PendingBuilder::PutOnRegister(int registerSection, const SectionRecord& section, int student) {
  rows_.Insert("Seccion_AlumnoPte", {registerSection, student, 0, 0});
  onRegister_.insert(student);
  AddGradeBook(section, student);
}

void PendingBuilder::SetTeacher(int taught, int teacher) {
  if (withTeacher_.insert(taught).second) rows_.Insert("Profesor_Pte", {teacher, taught});
}

void PendingBuilder::Add(const MarkingRecord& marking, const Pending& pending) {
  const auto id = keys_.pending++;
  rows_.Insert("AlumnoPte_MatDet", {id, pending.student, pending.taught, pending.order, 0});
  for (const auto evaluation : {evaluation::kFirst, evaluation::kSecond, evaluation::kThird}) {
    const auto graded = evaluation <= pending.graded;
    const auto grade = [&](std::size_t place) { return graded ? AnyGrade(marking, place) : 0; };
    // One after another: the order of arguments' evaluation is the compiler's.
    const auto main = grade(kMain);
    const auto attitude = grade(kAttitude);
    const auto remark = graded && random_.Chance(30) ? AnyGrade(marking, kRemark) : 0;
    const auto concept_ = grade(kConcept);
    const auto procedure = grade(kProcedure);
    rows_.Insert("EvaluacionPte", {keys_.ordinary++, id, evaluation, graded, main, attitude, remark,
                                   concept_, procedure, evaluation == pending.graded});
  }
  const auto finalGraded = pending.firstFinal >= 0;
  const auto finalGrade =
      finalGraded ? marking.grades[kMain][static_cast<std::size_t>(pending.firstFinal)] : 0;
  rows_.Insert("EvaluacionActaPte", {keys_.final++, id, evaluation::kFirstFinal, finalGraded,
                                     finalGrade, 0, 0, finalGraded});
  rows_.Insert("EvaluacionActaPte",
               {keys_.final++, id, evaluation::kSecondFinal, false, 0, 0, 0, false});
}

void PendingBuilder::AddGradeBook(const SectionRecord& section, int student) {
  auto order = 0;
  for (const auto& taught : section.taught) {
    const auto id = keys_.bookSubject++;
    rows_.Insert("Alumno_MateriaDetalles",
                 {id, student, taught.id, 0, evaluation::kFirst, ++order, true, 0});
    rows_.Insert("Evaluacion", {keys_.bookGrade++, id, evaluation::kFirst, 0, 0, 0, 0, 0, 0, 0, 0,
                                0, 0, 0, 0, 0});
  }
  rows_.Insert("Alumno_NumEvaluacion",
               {keys_.bookEvaluation++, student, evaluation::kFirst, 0, 0, 0, 0, 0, 0});
}

void PendingBuilder::AddStudent(const CentreRecord& centre, const SectionRecord& section,
                                const SectionRecord& earlier, int student) {
  PutOnRegister(section.id, section, student);
  const auto count = 1 + random_.Below(kMostPending);
  std::set<std::size_t> chosen;
  while (chosen.size() < count) {
    const auto place = random_.Below(earlier.taught.size());
    const auto& taught = earlier.taught[place];
    if (taught.kind != SubjectKind::Ordinary || !chosen.insert(place).second) continue;
    const auto graded = static_cast<int>(random_.Below(3));
    Add(centre.markings[section.teaching],
        {student, taught.id, static_cast<int>(chosen.size()), graded});
    SetTeacher(taught.id, taught.teacher);
  }
}

void PendingBuilder::BuildRegister(const CentreRecord& centre, std::size_t percent) {
  for (const auto& section : centre.sections) {
    if (section.course == 0) continue;
    std::vector<const SectionRecord*> before;
    for (const auto& other : centre.sections)
      if (other.teaching == section.teaching && other.course + 1 == section.course)
        before.push_back(&other);
    for (const auto student : section.students)
      if (!onRegister_.contains(student) && random_.Chance(percent))
        AddStudent(centre, section, *random_.OneOf(before), student);
  }
}

}  // namespace quorvane
