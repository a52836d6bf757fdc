#include "apps/escuela/import/ImportPlan.h"

#include <algorithm>
#include <functional>

#include "apps/escuela/import/FoldedText.h"
#include "apps/escuela/import/ImportColumns.h"
#include "platform/RuntimeError.h"
#include "platform/text/PlainNumber.h"

namespace quorvane {
namespace {

using Student = RegisterLookup::Student;
using Section = RegisterLookup::Section;
using Subject = RegisterLookup::Subject;

constexpr auto kMostFinals = 2;
constexpr std::size_t kMostCandidates = 5;
constexpr std::size_t kRowsBetween = 500;

/// Why a line doesn't fit.
struct Misfit {
  std::string reason;
};

/// The one that was found; a misfit, with the candidates, when there is none or are several.
template <class T>
const T& One(const std::vector<const T*>& found, const std::string& what,
             const std::function<std::string(const T&)>& name) {
  if (found.size() == 1) return *found.front();
  if (found.empty()) throw Misfit{"no hay " + what};
  std::string candidates;
  for (std::size_t i = 0; i < found.size() && i < kMostCandidates; ++i)
    candidates += (i > 0 ? "; " : "") + name(*found[i]);
  if (found.size() > kMostCandidates) candidates += "; …";
  throw Misfit{"hay " + std::to_string(found.size()) + " posibles, " + what + ": " + candidates};
}

class Planner {
 public:
  Planner(const CsvRow& heading, const RegisterLookup& school)
      : columns_(heading), school_(school) {}

  void Add(const CsvRow& row, ImportPlan& plan) {
    try {
      AddFitting(row, plan);
    } catch (const Misfit& misfit) {
      plan.misfits.push_back("Línea " + std::to_string(row.line) + ": " + misfit.reason);
    }
  }

 private:
  void AddFitting(const CsvRow& row, ImportPlan& plan) {
    if (row.cells.size() > columns_.Count())
      throw Misfit{"tiene " + std::to_string(row.cells.size()) + " columnas y el encabezado " +
                   std::to_string(columns_.Count())};
    ImportedSubject asked;
    asked.line = row.line;
    FindStudent(row, asked);
    FindSubject(row, asked);
    FindEvaluations(row, asked);
    const auto teacher = FindTeacher(row, asked);
    const auto key = std::pair(asked.student->id, asked.subject->id);
    if (const auto [there, isNew] = seen_.emplace(key, row.line); !isNew)
      throw Misfit{"repite la línea " + std::to_string(there->second)};
    const auto name = "Línea " + std::to_string(row.line) + ": " + asked.student->name + " (" +
                      asked.section->name + "), " + asked.subject->name + " (" +
                      asked.subject->section->name + ")";
    asked.pending = school_.Pending(asked.student->id, asked.subject->id) != nullptr;
    if (asked.pending && school_.OnRegister(asked.section->id, asked.student->id)) {
      ++plan.standing;
      plan.lines.push_back(name + ": ya está, y se deja como está");
    } else {
      plan.lines.push_back(
          name + ": " +
          (asked.pending ? "ya está, y falta el alumno en el registro" : EvaluationNames(asked)) +
          (teacher == 0 ? "" : ", " + school_.TeacherName(teacher)));
      plan.subjects.push_back(asked);
      WarnOfOtherRegister(asked, plan);
    }
    if (teacher != 0 && school_.TeacherOf(asked.subject->id) == 0)
      plan.teachers[asked.section][asked.subject->id] = teacher;
  }

  void FindStudent(const CsvRow& row, ImportedSubject& asked) const {
    const auto text = columns_.Student(row);
    if (text.empty()) throw Misfit{"falta el alumno"};
    std::vector<const Student*> found;
    const auto id = PlainNumber<std::int32_t>(text);
    if (id) {
      if (const auto* const student = school_.StudentOf(*id)) found.push_back(student);
    } else {
      found = school_.Students(text);
    }
    const auto sectionName = columns_.Section(row);
    const auto sections = school_.Sections(sectionName);
    if (sectionName.empty() && !id) throw Misfit{"falta la sección"};
    if (!sectionName.empty() && sections.empty())
      throw Misfit{"no hay ninguna sección «" + sectionName + "»"};
    const auto where = [this](const Student& student) {
      const auto* const section = school_.SectionOf(student.section);
      return student.name + " (" + std::to_string(student.id) + ", " +
             (section == nullptr ? "sin sección" : section->name) + ")";
    };
    const auto what = "ningún alumno «" + text + "»";
    auto inside = found;
    if (!sectionName.empty())
      std::erase_if(inside, [&](const Student* student) {
        return std::none_of(sections.begin(), sections.end(), [&](const Section* section) {
          return section->id == student->section;
        });
      });
    if (inside.empty() && !found.empty()) {
      std::string candidates;
      for (std::size_t i = 0; i < found.size() && i < kMostCandidates; ++i)
        candidates += (i > 0 ? "; " : "") + where(*found[i]);
      throw Misfit{"«" + text + "» no está en " + sectionName + ": " + candidates};
    }
    asked.student = &One<Student>(inside, inside.empty() ? what : "«" + text + "»", where);
    asked.section = school_.SectionOf(asked.student->section);
    if (asked.section == nullptr) throw Misfit{asked.student->name + " no está en ninguna sección"};
    if (asked.section->centre == 0)
      throw Misfit{"el registro no ofrece el tipo de enseñanza de " + asked.section->name};
    if (!asked.student->offered && !school_.OnRegister(asked.section->id, asked.student->id))
      throw Misfit{asked.student->name + " está de baja o no está en la lista de su sección"};
  }

  /// Whoever moved a student to another section has left him on the register of the one before.
  void WarnOfOtherRegister(const ImportedSubject& asked, ImportPlan& plan) {
    const auto other = school_.RegisterOf(asked.student->id);
    if (other == 0 || school_.OnRegister(asked.section->id, asked.student->id)) return;
    if (!warned_.insert(asked.student->id).second) return;
    const auto* const section = school_.SectionOf(other);
    plan.warnings.push_back(
        "Línea " + std::to_string(asked.line) + ": " + asked.student->name + " (" +
        asked.section->name + ") está ya en el registro de " +
        (section == nullptr ? "la sección " + std::to_string(other) : section->name) +
        ", y queda en los dos");
  }

  void FindSubject(const CsvRow& row, ImportedSubject& asked) const {
    const auto name = columns_.Subject(row);
    const auto course = columns_.Course(row);
    if (name.empty()) throw Misfit{"falta la materia"};
    const auto found = school_.Subjects(name, course, asked.section->teaching);
    const auto what = "«" + name + "»" + (course.empty() ? "" : " de " + course);
    asked.subject = &One<Subject>(found, found.empty() ? "ninguna materia " + what : what,
                                  [](const Subject& subject) { return subject.section->name; });
  }

  /// Separated by plus signs, bars, commas or semicolons.
  void FindEvaluations(const CsvRow& row, ImportedSubject& asked) const {
    const auto text = columns_.Evaluations(row);
    const auto folded = FoldedText(text);
    std::vector<RegisterLookup::Evaluation> chosen;
    if (folded.empty() || folded == "todas") {
      chosen = school_.Evaluations();
    } else {
      for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find_first_of("+|,;", at), text.size());
        AddEvaluation(text.substr(at, end - at), chosen);
        at = end + 1;
      }
    }
    RequireFinalsOfOneKind(chosen);
    for (const auto& evaluation : chosen) asked.evaluations.push_back(evaluation.id);
  }

  void AddEvaluation(const std::string& name,
                     std::vector<RegisterLookup::Evaluation>& chosen) const {
    const auto folded = FoldedText(name);
    if (folded.empty()) return;
    std::vector<const RegisterLookup::Evaluation*> found;
    for (const auto& evaluation : school_.Evaluations())
      if (FoldedText(evaluation.name) == folded) found.push_back(&evaluation);
    const auto what = "«" + name + "»";
    const auto& one = One<RegisterLookup::Evaluation>(
        found, found.empty() ? "ninguna evaluación " + what : what,
        [](const auto& evaluation) { return std::to_string(evaluation.id); });
    if (std::none_of(chosen.begin(), chosen.end(),
                     [&](const auto& there) { return there.id == one.id; }))
      chosen.push_back(one);
  }

  /// What the register would refuse in the middle of its work.
  static void RequireFinalsOfOneKind(const std::vector<RegisterLookup::Evaluation>& chosen) {
    auto finals = 0;
    auto extraordinary = 0;
    for (const auto& evaluation : chosen) {
      finals += evaluation.final ? 1 : 0;
      extraordinary += evaluation.final && evaluation.extraordinary ? 1 : 0;
    }
    if (finals > kMostFinals) throw Misfit{"más de dos evaluaciones finales: nómbrelas"};
    if (extraordinary != 0 && extraordinary != finals)
      throw Misfit{"las evaluaciones finales no son del mismo tipo: nómbrelas"};
  }

  std::int32_t FindTeacher(const CsvRow& row, const ImportedSubject& asked) {
    const auto text = columns_.Teacher(row);
    if (text.empty()) return 0;
    const auto found = school_.Teachers(text);
    const auto what = "«" + text + "»";
    const auto& one = One<RegisterLookup::Named>(
        found, found.empty() ? "ningún docente " + what : what,
        [](const auto& teacher) { return teacher.name + " (" + std::to_string(teacher.id) + ")"; });
    const auto standing = school_.TeacherOf(asked.subject->id);
    if (standing != 0 && standing != one.id)
      throw Misfit{asked.subject->name + " (" + asked.subject->section->name + ") ya es de " +
                   school_.TeacherName(standing)};
    if (standing == 0 && asked.subject->section->courseOrder >= asked.section->courseOrder)
      throw Misfit{"el registro de " + asked.section->name +
                   " no pone profesor a las materias de " + asked.subject->section->courseName};
    if (const auto [there, isNew] = asked_.emplace(asked.subject->id, std::pair(one.id, row.line));
        !isNew && there->second.first != one.id)
      throw Misfit{"la línea " + std::to_string(there->second.second) +
                   " dice otro profesor para esa materia"};
    return one.id;
  }

  std::string EvaluationNames(const ImportedSubject& asked) const {
    std::string names;
    for (const auto& evaluation : school_.Evaluations())
      if (std::find(asked.evaluations.begin(), asked.evaluations.end(), evaluation.id) !=
          asked.evaluations.end())
        names += (names.empty() ? "" : " + ") + evaluation.name;
    return names.empty() ? "ninguna evaluación" : names;
  }

  ImportColumns columns_;
  const RegisterLookup& school_;
  std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> seen_;
  std::set<std::int32_t> warned_;  // students who are on another register
  std::map<std::int32_t, std::pair<std::int32_t, std::size_t>> asked_;
};

}  // namespace

ImportPlan PlanImport(const std::vector<CsvRow>& rows, const RegisterLookup& school,
                      const std::function<void(std::size_t rows)>& looked) {
  if (rows.empty())
    throw RuntimeError(ErrorNumber::StatementFailed, "El fichero no tiene ninguna fila");
  ImportPlan plan;
  Planner planner(rows.front(), school);
  if (rows.size() == 1)
    throw RuntimeError(
        ErrorNumber::StatementFailed,
        "El fichero no tiene más que el encabezado: falta una línea por cada materia "
        "pendiente");
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (looked && i % kRowsBetween == 0) looked(i);
    planner.Add(rows[i], plan);
  }
  return plan;
}

}  // namespace quorvane
