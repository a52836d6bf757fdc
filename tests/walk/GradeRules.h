#pragma once

#include <set>
#include <string>

#include "platform/data/Connection.h"
#include "tests/walk/Tables.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// What grade entry may do to the tables: give grades, once it saves, to rows that are there, and
/// purge pending subjects that have lost their kind. It never makes a row, and loses none.
class GradeRules {
 public:
  struct Entry {
    bool accepted = false;  ///< the user has saved
    bool whole = true;      ///< the form closed as forms do: no error, all that it took given back
  };

  /// `connection` is read for the kinds of the subjects.
  GradeRules(Connection& connection, const Tables& before, const Tables& after, const Entry& entry)
      : withKind_(
            Tables::Column(connection,
                           "SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodTipoMateria IN "
                           "(SELECT IDTipoMateria FROM TipoMateria)")),
        before_(before),
        after_(after),
        entry_(entry) {}

  /// `Violation` when the tables went from `before` to `after` in another way.
  void Check() const {
    RequireSame("PublicacionPte", Difference(before_.publications, after_.publications));
    RequireSame("BloqueoPte", Difference(before_.locks, after_.locks));
    RequireSame("Seccion_AlumnoPte", Difference(before_.registered, after_.registered));
    RequireSame("Profesor_Pte", Difference(before_.teachers, after_.teachers));
    CheckPending();
    CheckGrades();
  }

 private:
  void CheckPending() const {
    for (const auto& [id, row] : before_.pending) {
      const auto now = after_.pending.find(id);
      if (now == after_.pending.end() && !Purgeable(id))
        throw Violation("AlumnoPte_MatDet " + id + " se ha perdido");
      if (now != after_.pending.end() && now->second != row)
        throw Violation("AlumnoPte_MatDet " + id + " ha cambiado");
    }
    for (const auto& [id, row] : after_.pending)
      if (!before_.pending.contains(id)) throw Violation("AlumnoPte_MatDet " + id + " está de más");
  }

  void CheckGrades() const {
    for (const auto& [key, row] : before_.grades) {
      const auto now = after_.grades.find(key);
      if (now == after_.grades.end()) {
        if (!Purgeable(row.pending)) Break(key, "se ha perdido");
        continue;
      }
      if (now->second.pending != row.pending || now->second.evaluation != row.evaluation)
        Break(key, "ha cambiado de materia o de evaluación");
      if (!entry_.accepted && now->second.values != row.values)
        Break(key, "ha cambiado sin que se grabe");
    }
    for (const auto& [key, row] : after_.grades) {
      if (!before_.grades.contains(key)) Break(key, "está de más");
      if (entry_.whole && before_.pending.contains(row.pending) &&
          !after_.pending.contains(row.pending))
        Break(key, "ha quedado sin su materia");
    }
  }

  [[nodiscard]] bool Purgeable(const std::string& pending) const {
    const auto row = before_.pending.find(pending);
    return row != before_.pending.end() && !withKind_.contains(row->second.subject);
  }

  [[noreturn]] static void Break(const Tables::GradesKey& key, const char* what) {
    throw Violation(key.first + " " + key.second + " " + what);
  }

  std::set<std::string> withKind_;
  const Tables& before_;
  const Tables& after_;
  Entry entry_;
};

}  // namespace quorvane::test
