#include "tests/walk/RegisterSave.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "frame/cConstCol.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

const cConstCol kStates;

std::string GradesText(const std::string& table, const std::string& evaluation,
                       const std::string& values) {
  return table + "|" + evaluation + "|" + values;
}

std::string NewGrades(const cEvaluacion& evaluacion) {
  return evaluacion.Final
             ? GradesText("EvaluacionActaPte", Key(evaluacion.IDEvaluacion), "0|0|0|0|0")
             : GradesText("EvaluacionPte", Key(evaluacion.IDEvaluacion), "0|0|0|0|0|0|0");
}

template <class Condition>
void EraseIf(Rows& rows, Condition condition) {
  for (auto row = rows.begin(); row != rows.end();)
    row = condition(*row) ? rows.erase(row) : std::next(row);
}

/// The column of a row, counted from 0.
std::string Part(const std::string& row, int column) {
  std::size_t start = 0;
  for (; column > 0; --column) start = row.find('|', start) + 1;
  return row.substr(start, row.find('|', start) - start);
}

Rows Union(const Rows& one, const Rows& other) {
  Rows all;
  std::set_union(one.begin(), one.end(), other.begin(), other.end(), std::inserter(all, all.end()));
  return all;
}

Rows Common(const Rows& one, const Rows& other) {
  Rows both;
  std::set_intersection(one.begin(), one.end(), other.begin(), other.end(),
                        std::inserter(both, both.end()));
  return both;
}

bool Includes(const Rows& all, const Rows& some) {
  return std::includes(all.begin(), all.end(), some.begin(), some.end());
}

void RequireSaved(const char* what, const Rows& expected, const Rows& found) {
  const auto difference = Difference(expected, found);
  if (!difference.empty()) throw Violation(std::string("Al grabar ") + what + difference);
}

void RequireBetween(const char* what, const Rows& before, const Rows& expected, const Rows& found) {
  if (!Includes(found, Common(before, expected)) || !Includes(Union(before, expected), found))
    throw Violation(std::string("Al grabar a medias ") + what + Difference(expected, found));
}

}  // namespace

RegisterSave::RegisterSave(const Tables& before, const frmAlumnoPendiente& form, int section)
    : registered_(before.registered),
      teachers_(before.teachers),
      registeredBefore_(before.registered),
      teachersBefore_(before.teachers) {
  std::map<std::string, std::size_t> places;
  for (const auto& [id, row] : before.pending) {
    places.emplace(id, pending_.size());
    pending_.push_back({row.student, row.subject, {}});
  }
  for (const auto& [key, row] : before.grades) {
    const auto place = places.find(row.pending);
    const auto text = GradesText(key.first, row.evaluation, row.values);
    if (place == places.end())
      lost_.insert(row.pending + "|" + text);
    else
      pending_[place->second].grades.insert(text);
  }
  beforeRows_ = Flatten(pending_);
  TakeTeachers(form);
  TakeStudents(form, section);
}

void RegisterSave::TakeTeachers(const frmAlumnoPendiente& form) {
  for (const auto& matProf : form.colMatProf) {
    const auto subject = Key(matProf->IDMatDetalle);
    const auto row = Key(matProf->IDPersonal) + "|" + subject;
    if (matProf->Estado == kStates.NUEVO) teachers_.insert(row);
    if (matProf->Estado != kStates.Modificado) continue;
    const auto rows = static_cast<std::size_t>(
        std::count_if(teachers_.begin(), teachers_.end(),
                      [&](const std::string& one) { return Part(one, 1) == subject; }));
    EraseIf(teachers_, [&](const std::string& one) { return Part(one, 1) == subject; });
    for (std::size_t i = 0; i < rows; ++i) teachers_.insert(row);
  }
}

void RegisterSave::TakeStudents(const frmAlumnoPendiente& form, int section) {
  for (const auto& alumno : form.colAlumnos) {
    const auto student = Key(alumno->IDAlumno);
    if (alumno->Estado == kStates.Eliminado) {
      RemovePending([&](const Pending& one) { return one.student == student; });
      EraseIf(registered_, [&](const std::string& row) { return Part(row, 1) == student; });
    } else if (alumno->Estado == kStates.NUEVO) {
      EraseIf(registered_, [&](const std::string& row) {
        return Part(row, 0) == Key(section) && Part(row, 1) == student;
      });
      registered_.insert(Key(section) + "|" + student + "|0|0");
      for (const auto& materia : alumno->colMateria) AddPending(student, *materia);
    } else if (alumno->Estado == kStates.Modificado) {
      for (const auto& materia : alumno->colMateria) TakeSubject(student, *materia);
    }
  }
}

void RegisterSave::TakeSubject(const std::string& student, const cMateria& materia) {
  const auto subject = Key(materia.IDMatDetalle);
  if (materia.Estado == kStates.NUEVO)
    AddPending(student, materia);
  else if (materia.Estado == kStates.Modificado)
    exact_ = TakeEvaluations(student, materia) && exact_;
  else if (materia.Estado == kStates.Eliminado)
    RemovePending(
        [&](const Pending& one) { return one.student == student && one.subject == subject; });
}

void RegisterSave::AddPending(const std::string& student, const cMateria& materia) {
  Pending added{student, Key(materia.IDMatDetalle), {}};
  for (const auto& evaluacion : materia.colEvaluaciones)
    added.grades.insert(NewGrades(*evaluacion));
  pending_.push_back(added);
}

bool RegisterSave::TakeEvaluations(const std::string& student, const cMateria& materia) {
  const auto subject = Key(materia.IDMatDetalle);
  Pending* found = nullptr;
  for (auto& one : pending_) {
    if (one.student != student || one.subject != subject) continue;
    if (found != nullptr) return false;
    found = &one;
  }
  if (found == nullptr) return false;
  for (const auto& evaluacion : materia.colEvaluaciones) {
    if (evaluacion->Estado == kStates.NUEVO) found->grades.insert(NewGrades(*evaluacion));
    if (evaluacion->Estado == kStates.Eliminado)
      EraseIf(found->grades, [&](const std::string& row) {
        return Part(row, 1) == Key(evaluacion->IDEvaluacion);
      });
  }
  return true;
}

template <class Condition>
void RegisterSave::RemovePending(Condition condition) {
  pending_.erase(std::remove_if(pending_.begin(), pending_.end(), condition), pending_.end());
}

Rows RegisterSave::Flatten(const std::vector<Pending>& pending) {
  Rows rows;
  for (const auto& one : pending) {
    const auto name = one.student + "|" + one.subject;
    rows.insert(name);
    for (const auto& grades : one.grades) rows.insert(name + "|" + grades);
  }
  return rows;
}

namespace {

/// The rows of the tables, as `Flatten` tells them, and those of grades without a subject.
std::pair<Rows, Rows> FlattenTables(const Tables& tables) {
  std::pair<Rows, Rows> rows;
  for (const auto& [id, row] : tables.pending) rows.first.insert(row.student + "|" + row.subject);
  for (const auto& [key, row] : tables.grades) {
    const auto text = GradesText(key.first, row.evaluation, row.values);
    const auto owner = tables.pending.find(row.pending);
    if (owner == tables.pending.end())
      rows.second.insert(row.pending + "|" + text);
    else
      rows.first.insert(owner->second.student + "|" + owner->second.subject + "|" + text);
  }
  return rows;
}

}  // namespace

void RegisterSave::Check(const Tables& after) const {
  const auto [rows, lost] = FlattenTables(after);
  RequireSaved("las evaluaciones sueltas", lost_, lost);
  RequireSaved("Profesor_Pte", teachers_, after.teachers);
  RequireSaved("Seccion_AlumnoPte", registered_, after.registered);
  if (exact_) RequireSaved("materias y evaluaciones", Flatten(pending_), rows);
}

void RegisterSave::CheckInterrupted(const Tables& after) const {
  const auto [rows, lost] = FlattenTables(after);
  RequireSaved("las evaluaciones sueltas", lost_, lost);
  RequireBetween("Profesor_Pte", teachersBefore_, teachers_, after.teachers);
  RequireBetween("Seccion_AlumnoPte", registeredBefore_, registered_, after.registered);
  if (exact_) RequireBetween("materias y evaluaciones", beforeRows_, Flatten(pending_), rows);
}

}  // namespace quorvane::test
