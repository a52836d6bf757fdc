#pragma once

#include <cstdint>

#include "frame/cConstCol.h"
#include "platform/data/Collection.h"
#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;

/// Reads the register of a section: one statement, sorted by student and subject, walked with a
/// control break at student, subject and evaluation. What is doubled there it deletes at once.
class RegisterLoader {
 public:
  /// Both outlive the loader.
  RegisterLoader(Connection& centro, Collection<cAlumno>& colAlumnos);

  /// Adds the section's students to the collection. True when a grade form holds one of their
  /// subjects; after the first such subject no further one is looked at. Fails as its statements
  /// do, with 6 or 13 for a column that its field can't take; what was deleted stays deleted.
  bool Load(std::int32_t section);

 private:
  void ReadStudent();
  void ReadSubject(cAlumno& alumno);
  void ReadEvaluation(cMateria& materia);
  /// The current row is still of that student.
  [[nodiscard]] bool Of(const cAlumno& alumno) const;

  Connection& centro_;
  Collection<cAlumno>& colAlumnos_;
  Recordset rows_;
  bool locked_ = false;
  cConstCol estados_;
};

}  // namespace quorvane
