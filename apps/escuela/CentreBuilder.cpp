#include "apps/escuela/CentreBuilder.h"

#include <algorithm>
#include <string>
#include <utility>

namespace quorvane {
namespace {

constexpr std::size_t kOtherStaff = 8;

// A to Z, then A2 to Z2 and so on.
std::string SectionLetter(std::size_t number) {
  constexpr std::size_t kLetters = 26;
  std::string name(1, static_cast<char>('A' + number % kLetters));
  if (number >= kLetters) name += std::to_string(number / kLetters + 1);
  return name;
}

}  // namespace

void CentreBuilder::BuildShared() {
  rows_.Insert("TipoEnsenanza", {1, "Educación Infantil", 1});
  rows_.Insert("TipoEnsenanza", {2, "Educación Primaria", 2});
  for (const auto& plan : EvaluationPlans())
    rows_.Insert("NumEvaluacion", {plan.id, plan.name, plan.final, plan.extraordinary, plan.order});
}

std::size_t CentreBuilder::StaffCount(const CentreOptions& options) {
  auto count = kOtherStaff;
  for (const auto& courses : options.sections)
    for (const auto sections : courses) count += static_cast<std::size_t>(sections);
  return count;
}

CentreRecord CentreBuilder::Build(const CentreOptions& options) {
  CentreRecord centre;
  studentsLeft_ = options.students;
  AddStaff(options, centre);
  for (const auto reserved : {1, 2})
    rows_.Insert("Centro_TipoEnsenanza", {reserved, options.centre});
  for (std::size_t plan = 0; plan < TeachingPlans().size(); ++plan)
    AddTeaching(options, plan, centre);
  return centre;
}

void CentreBuilder::AddStaff(const CentreOptions& options, CentreRecord& centre) {
  for (const auto user : options.staffUsers) {
    const auto id = keys_.staff++;
    rows_.Insert("Personal", {id, random_.OneOf(Surnames()), random_.OneOf(Surnames()),
                              random_.OneOf(FirstNames()), user});
    centre.staff.push_back(id);
  }
}

void CentreBuilder::AddTeaching(const CentreOptions& options, std::size_t plan,
                                CentreRecord& centre) {
  const auto& teachingPlan = TeachingPlans()[plan];
  const auto teaching = keys_.teaching++;
  std::string name(teachingPlan.name);
  if (options.centre > 1) name += " (centro " + std::to_string(options.centre) + ")";
  rows_.Insert("TipoEnsenanza", {teaching, name, teaching});
  rows_.Insert("Centro_TipoEnsenanza", {teaching, options.centre});
  centre.markings.push_back(markings_.Build(teaching, teachingPlan));
  const auto& marking = centre.markings.back();
  const auto subjects = AddSubjects(teaching, teachingPlan, marking);

  auto course = 0;
  for (std::size_t i = 0; i < teachingPlan.courses.size(); ++i) {
    const auto& coursePlan = teachingPlan.courses[i];
    course = keys_.course++;
    rows_.Insert("Curso", {course, coursePlan.name, teaching, static_cast<int>(i + 1),
                           coursePlan.promotion, coursePlan.measures});
    const auto sections = static_cast<std::size_t>(options.sections[plan][i]);
    for (std::size_t number = 0; number < sections; ++number) {
      SectionRecord section;
      section.teaching = plan;
      section.course = i;
      const auto tutor = centre.staff[centre.sections.size()];
      section.id = keys_.section++;
      rows_.Insert("Seccion",
                   {section.id, std::string(coursePlan.name) + " " + SectionLetter(number), course,
                    tutor, marking.model, teachingPlan.recoveries, false});
      AddSection(options, std::move(section), number, subjects, centre);
    }
  }

  // Grades of a narrower scope, one of each.
  const auto main = marking.gradeKinds[1];
  markings_.AddScoped(main, {"MH", true, true, 0, course});
  markings_.AddScoped(main, {"NP", false, false, 0, 0, evaluation::kExtraordinary});
  markings_.AddScoped(main, {"Convalidada", true, false, 0, 0, 0, subjects.back()});
  markings_.AddScoped(main, {"Exento", true, false, marking.model});
  markings_.AddScoped(main, {"Revisada", true, false, 0, 0, 0, 0, centre.staff.front()});
}

std::vector<int> CentreBuilder::AddSubjects(int teaching, const TeachingPlan& plan,
                                            const MarkingRecord& marking) {
  std::vector<int> ids;
  for (const auto& subject : plan.subjects) {
    ids.push_back(keys_.subject++);
    rows_.Insert("Materia", {ids.back(), subject.name, subject.optional, 0, teaching,
                             marking.subjectKinds[static_cast<std::size_t>(subject.kind)]});
  }
  // Objectives hang from a subject and are offered nowhere as one.
  for (const auto* objective : {"Comprensión de textos", "Expresión escrita"})
    rows_.Insert("Materia",
                 {keys_.subject++, objective, false, ids.front(), teaching,
                  marking.subjectKinds[static_cast<std::size_t>(SubjectKind::Ordinary)]});
  return ids;
}

void CentreBuilder::AddSection(const CentreOptions& options, SectionRecord section,
                               std::size_t number, const std::vector<int>& subjects,
                               CentreRecord& centre) {
  const auto& plan = TeachingPlans()[section.teaching];
  const auto& kinds = centre.markings[section.teaching].subjectKinds;
  for (std::size_t i = 0; i < plan.subjects.size(); ++i) {
    const auto& subject = plan.subjects[i];
    if (std::find(subject.courses.begin(), subject.courses.end(), section.course) ==
        subject.courses.end())
      continue;
    TaughtRecord taught{keys_.taught++, subjects[i],
                        centre.staff[(i + number * 3) % (centre.staff.size() - kOtherStaff / 2)],
                        subject.kind};
    const auto associate = subject.optional ? centre.staff[i % centre.staff.size()] : 0;
    rows_.Insert("MateriaDetalles", {taught.id, taught.subject, section.id, taught.teacher,
                                     associate, kinds[static_cast<std::size_t>(subject.kind)]});
    section.taught.push_back(taught);
  }
  for (const auto& evaluation : EvaluationPlans())
    rows_.Insert("Seccion_NumEvaluacion", {section.id, evaluation.id});
  AddStudents(options, section);
  centre.sections.push_back(std::move(section));
}

void CentreBuilder::AddStudents(const CentreOptions& options, SectionRecord& section) {
  const auto count = std::min(options.studentsPerSection, studentsLeft_);
  studentsLeft_ -= count;
  for (std::size_t place = 1; place <= count; ++place) {
    const auto id = keys_.student++;
    rows_.Insert("Alumno",
                 {id, random_.OneOf(FirstNames()), random_.OneOf(Surnames()),
                  random_.OneOf(Surnames()), section.id, static_cast<int>(place), false, ""});
    rows_.Insert("Seccion_Alumno", {section.id, id});
    section.students.push_back(id);
  }
}

}  // namespace quorvane
