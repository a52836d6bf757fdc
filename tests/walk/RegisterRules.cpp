#include "tests/walk/RegisterRules.h"

#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

class LoadRules {
 public:
  LoadRules(Connection& connection, const Tables& before)
      : students_(Column(connection, "SELECT IDAlumno FROM Alumno")),
        subjects_(Column(connection, "SELECT IDMateriaDetalles FROM MateriaDetalles")),
        before_(before) {}

  [[nodiscard]] bool Orphaned(const Tables::Pending& row) const {
    return Lost(row.student, students_) || Lost(row.subject, subjects_);
  }

  [[nodiscard]] bool MayGo(const std::string& pending) const {
    const auto found = before_.pending.find(pending);
    return found != before_.pending.end() && (Orphaned(found->second) || Doubled(*found));
  }

  [[nodiscard]] bool Absent(const std::string& student) const { return Lost(student, students_); }

 private:
  static bool Lost(const std::string& id, const std::set<std::string>& ids) {
    return id != "NULL" && !ids.contains(id);
  }

  /// The same subject twice. Two subjects at one place of the student's list mix their rows when
  /// they are read, so that one of them seems to come twice.
  [[nodiscard]] bool Doubled(const std::pair<const std::string, Tables::Pending>& one) const {
    for (const auto& [id, row] : before_.pending)
      if (id != one.first && row.student == one.second.student &&
          (row.subject == one.second.subject || row.order == one.second.order))
        return true;
    return false;
  }

  std::set<std::string> students_;
  std::set<std::string> subjects_;
  const Tables& before_;
};

void CheckPending(const LoadRules& rules, const Tables& before, const Tables& after, bool whole) {
  for (const auto& [id, row] : before.pending) {
    const auto now = after.pending.find(id);
    if (now == after.pending.end()) {
      if (!rules.MayGo(id)) throw Violation("AlumnoPte_MatDet " + id + " se ha perdido");
      continue;
    }
    if (now->second != row) throw Violation("AlumnoPte_MatDet " + id + " ha cambiado");
    if (whole && rules.Orphaned(row)) throw Violation("AlumnoPte_MatDet " + id + " debía purgarse");
  }
  if (after.pending.size() > before.pending.size()) throw Violation("AlumnoPte_MatDet de más");
}

void CheckGrades(const LoadRules& rules, const Tables& before, const Tables& after, bool whole) {
  for (const auto& [key, row] : before.grades) {
    const auto now = after.grades.find(key);
    const auto name = key.first + " " + key.second;
    if (now == after.grades.end()) {
      if (!rules.MayGo(row.pending)) throw Violation(name + " se ha perdido");
      continue;
    }
    if (now->second != row) throw Violation(name + " ha cambiado");
    if (whole && before.pending.contains(row.pending) && !after.pending.contains(row.pending))
      throw Violation(name + " ha quedado sin su materia");
  }
  if (after.grades.size() > before.grades.size()) throw Violation("Evaluaciones de más");
}

}  // namespace

void CheckRegisterLoad(Connection& connection, const Tables& before, const Tables& after,
                       bool whole) {
  const LoadRules rules(connection, before);
  const auto same = Difference(before.publications, after.publications) +
                    Difference(before.locks, after.locks) +
                    Difference(before.teachers, after.teachers);
  if (!same.empty()) throw Violation("Al abrir el registro:" + same);
  CheckPending(rules, before, after, whole);
  CheckGrades(rules, before, after, whole);
  auto registered = before.registered;
  for (const auto& row : after.registered) {
    const auto found = registered.find(row);
    if (found == registered.end()) throw Violation("Seccion_AlumnoPte de más [" + row + "]");
    registered.erase(found);
  }
  for (const auto& row : registered) {
    const auto student = row.substr(row.find('|') + 1);
    if (!rules.Absent(student.substr(0, student.find('|'))))
      throw Violation("Seccion_AlumnoPte perdida [" + row + "]");
  }
}

}  // namespace quorvane::test
