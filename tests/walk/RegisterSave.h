#pragma once

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "frame/cConstCol.h"
#include "register/frmAlumnoPendiente.h"
#include "tests/walk/Tables.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// What saving a register has to leave, told from the tables as they are and from what the user
/// has done on the form: nothing of what he left alone is lost, doubled or changed.
class RegisterSave {
 public:
  /// `before` outlives it.
  RegisterSave(const Tables& before, const frmAlumnoPendiente& form, int section)
      : before_(before), registered_(before.registered), teachers_(before.teachers) {
    std::map<std::string, Pending> found;
    for (const auto& [id, row] : before.pending) found[id] = {row.student, row.subject, {}};
    for (const auto& [key, row] : before.grades)
      if (const auto owner = found.find(row.pending); owner != found.end())
        owner->second.grades.insert(GradesText(key.first, row.evaluation, row.values));
    for (auto& [id, pending] : found) pending_.push_back(std::move(pending));
    TakeTeachers(form);
    TakeStudents(form, section);
  }

  /// `Violation` unless the tables are as told, or after an error on the way each row is as it was
  /// or as it was to be.
  void Check(const Tables& after, bool whole) const {
    const auto [rowsBefore, lostBefore] = Flatten(before_);
    const auto [rows, lost] = Flatten(after);
    RequireSame("Al grabar las evaluaciones sueltas", Difference(lostBefore, lost));
    const auto require = whole ? RequireSaved : RequireBetween;
    require("Profesor_Pte", before_.teachers, teachers_, after.teachers);
    require("Seccion_AlumnoPte", before_.registered, registered_, after.registered);
    if (exact_) require("materias y evaluaciones", rowsBefore, Flatten(pending_), rows);
  }

 private:
  struct Pending {
    std::string student;
    std::string subject;
    Rows grades;  ///< table, evaluation, values
  };

  void TakeTeachers(const frmAlumnoPendiente& form) {
    for (const auto& matProf : form.colMatProf) {
      const auto subject = Key(matProf->IDMatDetalle);
      const auto row = Key(matProf->IDPersonal) + "|" + subject;
      if (matProf->Estado == kStates.NUEVO) teachers_.insert(row);
      if (matProf->Estado != kStates.Modificado) continue;
      auto rows =
          std::erase_if(teachers_, [&](const std::string& one) { return Part(one, 1) == subject; });
      for (; rows > 0; --rows) teachers_.insert(row);
    }
  }

  void TakeStudents(const frmAlumnoPendiente& form, int section) {
    for (const auto& alumno : form.colAlumnos) {
      const auto student = Key(alumno->IDAlumno);
      if (alumno->Estado == kStates.Eliminado) {
        std::erase_if(pending_, [&](const Pending& one) { return one.student == student; });
        std::erase_if(registered_, [&](const std::string& row) { return Part(row, 1) == student; });
      } else if (alumno->Estado == kStates.NUEVO) {
        std::erase_if(registered_, [&](const std::string& row) {
          return Part(row, 0) == Key(section) && Part(row, 1) == student;
        });
        registered_.insert(Key(section) + "|" + student + "|0|0");
        for (const auto& materia : alumno->colMateria) AddPending(student, *materia);
      } else if (alumno->Estado == kStates.Modificado) {
        for (const auto& materia : alumno->colMateria) TakeSubject(student, *materia);
      }
    }
  }

  void TakeSubject(const std::string& student, const cMateria& materia) {
    const auto subject = Key(materia.IDMatDetalle);
    if (materia.Estado == kStates.NUEVO)
      AddPending(student, materia);
    else if (materia.Estado == kStates.Modificado)
      exact_ = TakeEvaluations(student, materia) && exact_;
    else if (materia.Estado == kStates.Eliminado)
      std::erase_if(pending_, [&](const Pending& one) {
        return one.student == student && one.subject == subject;
      });
  }

  void AddPending(const std::string& student, const cMateria& materia) {
    auto& added = pending_.emplace_back();
    added = {student, Key(materia.IDMatDetalle), {}};
    for (const auto& evaluacion : materia.colEvaluaciones)
      added.grades.insert(NewGrades(*evaluacion));
  }

  /// False for a subject that the student has twice, or not at all any more.
  [[nodiscard]] bool TakeEvaluations(const std::string& student, const cMateria& materia) {
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
        std::erase_if(found->grades, [&](const std::string& row) {
          return Part(row, 1) == Key(evaluacion->IDEvaluacion);
        });
    }
    return true;
  }

  static std::string GradesText(const std::string& table, const std::string& evaluation,
                                const std::string& values) {
    return table + "|" + evaluation + "|" + values;
  }

  static std::string NewGrades(const cEvaluacion& evaluacion) {
    const auto number = Key(evaluacion.IDEvaluacion);
    return evaluacion.Final ? GradesText("EvaluacionActaPte", number, "0|0|0|0|0")
                            : GradesText("EvaluacionPte", number, "0|0|0|0|0|0|0");
  }

  /// The column of a row, counted from 0.
  static std::string Part(const std::string& row, int column) {
    std::size_t start = 0;
    for (; column > 0; --column) start = row.find('|', start) + 1;
    return row.substr(start, row.find('|', start) - start);
  }

  /// Pending subjects with their grades, without the keys, which new rows take as they come.
  static Rows Flatten(const std::vector<Pending>& pending) {
    Rows rows;
    for (const auto& one : pending) {
      const auto name = one.student + "|" + one.subject;
      rows.insert(name);
      for (const auto& grades : one.grades) rows.insert(name + "|" + grades);
    }
    return rows;
  }

  /// The same of the tables, and the grades without a subject, which nobody touches.
  static std::pair<Rows, Rows> Flatten(const Tables& tables) {
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

  static void RequireSaved(const std::string& what, const Rows& /*before*/, const Rows& expected,
                           const Rows& found) {
    RequireSame("Al grabar " + what, Difference(expected, found));
  }

  static void RequireBetween(const std::string& what, const Rows& before, const Rows& expected,
                             const Rows& found) {
    Rows all;
    std::ranges::set_union(before, expected, std::inserter(all, all.end()));
    Rows both;
    std::ranges::set_intersection(before, expected, std::inserter(both, both.end()));
    if (!std::ranges::includes(found, both) || !std::ranges::includes(all, found))
      throw Violation("Al grabar a medias " + what + Difference(expected, found));
  }

  inline static const cConstCol kStates;

  const Tables& before_;
  std::vector<Pending> pending_;
  Rows registered_;
  Rows teachers_;
  bool exact_ = true;  ///< false where what is saved hangs on the order of the database
};

}  // namespace quorvane::test
