#include "tests/walk/GradeRules.h"

#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

void RequireSame(const char* table, const Rows& before, const Rows& after) {
  const auto difference = Difference(before, after);
  if (!difference.empty()) throw Violation(std::string(table) + difference);
}

class GradeRules {
 public:
  GradeRules(Connection& connection, const Tables& before, const Tables& after,
             const GradeEntry& entry)
      : withKind_(Column(connection,
                         "SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodTipoMateria IN "
                         "(SELECT IDTipoMateria FROM TipoMateria)")),
        before_(before),
        after_(after),
        entry_(entry) {}

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

 private:
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
  const GradeEntry& entry_;
};

}  // namespace

void CheckGradeEntry(Connection& connection, const Tables& before, const Tables& after,
                     const GradeEntry& entry) {
  RequireSame("PublicacionPte", before.publications, after.publications);
  RequireSame("BloqueoPte", before.locks, after.locks);
  RequireSame("Seccion_AlumnoPte", before.registered, after.registered);
  RequireSame("Profesor_Pte", before.teachers, after.teachers);
  const GradeRules rules(connection, before, after, entry);
  rules.CheckPending();
  rules.CheckGrades();
}

}  // namespace quorvane::test
