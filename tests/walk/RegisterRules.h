#pragma once

#include <algorithm>
#include <set>
#include <string>

#include "platform/data/Connection.h"
#include "tests/walk/Tables.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// What opening the register may do to the tables: purge what has lost its student or its subject,
/// and heal a student who has a subject twice.
class RegisterRules {
 public:
  /// `whole` when it opened without an error: then nothing of that kind remains. `connection` is
  /// read for the students and subjects.
  RegisterRules(Connection& connection, const Tables& before, const Tables& after, bool whole)
      : students_(Tables::Column(connection, "SELECT IDAlumno FROM Alumno")),
        subjects_(Tables::Column(connection, "SELECT IDMateriaDetalles FROM MateriaDetalles")),
        before_(before),
        after_(after),
        whole_(whole) {}

  /// `Violation` when the tables went from `before` to `after` in another way.
  void Check() const {
    RequireSame("Al abrir el registro:", Difference(before_.publications, after_.publications) +
                                             Difference(before_.locks, after_.locks) +
                                             Difference(before_.teachers, after_.teachers));
    CheckPending();
    CheckGrades();
    CheckRegistered();
  }

 private:
  void CheckPending() const {
    for (const auto& [id, row] : before_.pending) {
      const auto now = after_.pending.find(id);
      if (now == after_.pending.end()) {
        if (!MayGo(id)) throw Violation("AlumnoPte_MatDet " + id + " se ha perdido");
        continue;
      }
      if (now->second != row) throw Violation("AlumnoPte_MatDet " + id + " ha cambiado");
      if (whole_ && Orphaned(row)) throw Violation("AlumnoPte_MatDet " + id + " debía purgarse");
    }
    if (after_.pending.size() > before_.pending.size()) throw Violation("AlumnoPte_MatDet de más");
  }

  void CheckGrades() const {
    for (const auto& [key, row] : before_.grades) {
      const auto now = after_.grades.find(key);
      const auto name = key.first + " " + key.second;
      if (now == after_.grades.end()) {
        if (!MayGo(row.pending)) throw Violation(name + " se ha perdido");
        continue;
      }
      if (now->second != row) throw Violation(name + " ha cambiado");
      if (whole_ && before_.pending.contains(row.pending) && !after_.pending.contains(row.pending))
        throw Violation(name + " ha quedado sin su materia");
    }
    if (after_.grades.size() > before_.grades.size()) throw Violation("Evaluaciones de más");
  }

  void CheckRegistered() const {
    auto lost = before_.registered;
    for (const auto& row : after_.registered) {
      const auto found = lost.find(row);
      if (found == lost.end()) throw Violation("Seccion_AlumnoPte de más [" + row + "]");
      lost.erase(found);
    }
    for (const auto& row : lost) {
      const auto student = row.substr(row.find('|') + 1);
      if (!Gone(student.substr(0, student.find('|')), students_))
        throw Violation("Seccion_AlumnoPte perdida [" + row + "]");
    }
  }

  static bool Gone(const std::string& id, const std::set<std::string>& ids) {
    return id != "NULL" && !ids.contains(id);
  }

  [[nodiscard]] bool Orphaned(const Tables::Pending& row) const {
    return Gone(row.student, students_) || Gone(row.subject, subjects_);
  }

  /// It is orphaned, or the student has the same subject twice. Two subjects at one place of his
  /// list mix their rows when they are read, so that one of them seems to come twice.
  [[nodiscard]] bool MayGo(const std::string& id) const {
    const auto found = before_.pending.find(id);
    if (found == before_.pending.end()) return false;
    const auto& row = found->second;
    return Orphaned(row) || std::ranges::any_of(before_.pending, [&](const auto& other) {
             return other.first != id && other.second.student == row.student &&
                    (other.second.subject == row.subject || other.second.order == row.order);
           });
  }

  std::set<std::string> students_;
  std::set<std::string> subjects_;
  const Tables& before_;
  const Tables& after_;
  bool whole_;
};

}  // namespace quorvane::test
