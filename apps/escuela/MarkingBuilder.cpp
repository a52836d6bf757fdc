#include "apps/escuela/MarkingBuilder.h"

namespace quorvane {
namespace {

constexpr std::size_t kFirstPassingNumber = 5;

const std::vector<std::string_view>& Remarks() {
  static const std::vector<std::string_view> words{
      "Evolución favorable", "Falta a clase con frecuencia", "Necesita apoyo de la familia",
      "Se recomienda el plan de refuerzo"};
  return words;
}

}  // namespace

int MarkingBuilder::AddSubjectKind(int system, std::string_view name, SubjectKind kind) {
  const auto id = keys_.subjectKind++;
  rows_.Insert("TipoMateria", {id, name, static_cast<int>(kind), system});
  return id;
}

int MarkingBuilder::AddGradeKind(int subjectKind, const GradeKind& kind) {
  const auto id = keys_.gradeKind++;
  rows_.Insert("TipoNota", {id, kind.name, kind.place, kind.column, kind.subject, false,
                            kind.evaluation, subjectKind});
  return id;
}

std::vector<int> MarkingBuilder::AddGrades(int gradeKind,
                                           const std::vector<std::string_view>& words) {
  // Of numbers half fail; of words only the first.
  const auto firstPassing = words.size() > kFirstPassingNumber ? kFirstPassingNumber : 1;
  std::vector<int> ids;
  for (std::size_t i = 0; i < words.size(); ++i) {
    ids.push_back(keys_.grade);
    AddScoped(gradeKind, {words[i], i >= firstPassing});
  }
  return ids;
}

void MarkingBuilder::AddScoped(int gradeKind, const ScopedGrade& grade) {
  rows_.Insert("Nota", {keys_.grade++, grade.text, grade.passed, grade.exceptional, grade.model,
                        grade.course, grade.evaluation, grade.subject, grade.teacher, gradeKind});
}

MarkingRecord MarkingBuilder::Build(int teaching, const TeachingPlan& plan) {
  MarkingRecord record;
  record.system = keys_.system++;
  record.model = keys_.model++;
  rows_.Insert("SistemaCalificacion", {record.system, teaching, plan.recoveries});
  rows_.Insert("Modelo", {record.model, record.system});

  const auto addKind = [&](std::string_view name, SubjectKind kind) {
    return record.subjectKinds[static_cast<std::size_t>(kind)] =
               AddSubjectKind(record.system, name, kind);
  };
  const auto ordinary = addKind("Materia", SubjectKind::Ordinary);
  for (const auto& column : plan.columns) {
    const auto place = static_cast<std::size_t>(column.place);
    record.gradeKinds[place] =
        AddGradeKind(ordinary, {column.name, column.place, true, true, true});
    record.grades[place] = AddGrades(record.gradeKinds[place], column.words);
  }
  const auto values = addKind("Valores y actitudes", SubjectKind::Values);
  AddGrades(AddGradeKind(values, {"Valoración", 1, false, false, false}),
            {"A veces", "Casi siempre", "Siempre"});
  AddGrades(AddGradeKind(values, {"Esfuerzo", 2, false, false, false}),
            {"Escaso", "Suficiente", "Constante"});
  // Graded in final evaluations alone, in the column of the main grade.
  const auto placement = addKind("Formación en empresa", SubjectKind::WorkPlacement);
  AddGrades(AddGradeKind(placement, {plan.columns.front().name, 1, true, true, false}),
            {"No apto", "Apto", "Exento"});
  const auto remark = addKind("Observación", SubjectKind::TutorRemark);
  AddGrades(AddGradeKind(remark, {"Observación del tutor:", 1, false, false, true}), Remarks());
  return record;
}

}  // namespace quorvane
