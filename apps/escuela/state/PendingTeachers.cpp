#include "apps/escuela/state/PendingTeachers.h"

#include <set>

#include "apps/escuela/PersonName.h"
#include "platform/data/Connection.h"

namespace quorvane {

PendingTeachers::PendingTeachers(Connection& school) {
  std::set<std::int32_t> teaching;
  for (auto rows = school.Execute("SELECT CodMatDet, MAX(CodProfesor) FROM Profesor_Pte GROUP BY "
                                  "CodMatDet");
       !rows.Eof(); rows.MoveNext()) {
    bySubject_[rows.Fields(0).Long()] = rows.Fields(1).Long();
    teaching.insert(rows.Fields(1).Long());
  }
  std::map<std::string, int> namesakes;
  for (auto rows = school.Execute("SELECT IDPersonal, Apellido1, Apellido2, Nombre FROM Personal");
       !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields(0).Long();
    if (teaching.contains(id)) ++namesakes[names_[id] = FullName(rows, 1)];
  }
  for (auto& [id, name] : names_)
    if (namesakes[name] > 1) name += " (" + std::to_string(id) + ")";
}

std::int32_t PendingTeachers::Of(std::int32_t subject) const {
  const auto found = bySubject_.find(subject);
  return found == bySubject_.end() ? 0 : found->second;
}

std::string PendingTeachers::Name(std::int32_t teacher) const {
  if (teacher == 0) return {};
  const auto found = names_.find(teacher);
  return found == names_.end() ? "docente " + std::to_string(teacher) : found->second;
}

}  // namespace quorvane
