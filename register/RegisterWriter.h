#pragma once

#include <cstdint>
#include <string>

#include "frame/cConstCol.h"
#include "platform/data/Collection.h"
#include "register/cAlumno.h"
#include "register/cMatProf.h"

namespace quorvane {

class Connection;

/// Writes the register of a section in one pass, driven by the row states alone: children go
/// before parents when deleting, parents before children when inserting. No transaction: what is
/// written when a statement fails stays written. Error 3021 for a changed subject whose row is
/// gone. The objects stay as they are.
class RegisterWriter {
 public:
  /// The connection outlives the writer.
  RegisterWriter(Connection& centro, std::int32_t section);

  void SaveTeachers(const Collection<cMatProf>& colMatProf);
  void SaveStudents(const Collection<cAlumno>& colAlumnos);

 private:
  /// The key of a new row, as `ObtenerSiguienteId`.
  std::int32_t SiguienteId(const std::string& maximo);
  void SaveTeacher(const cMatProf& matProf);
  void DeleteStudent(const cAlumno& alumno);
  void InsertStudent(const cAlumno& alumno);
  void UpdateStudent(const cAlumno& alumno);
  void InsertSubject(const cAlumno& alumno, const cMateria& materia);
  void UpdateSubject(const cAlumno& alumno, const cMateria& materia);
  void DeleteSubject(const cAlumno& alumno, const cMateria& materia);
  void InsertEvaluation(std::int32_t pending, const cEvaluacion& evaluacion);
  void DeleteEvaluation(std::int32_t pending, const cEvaluacion& evaluacion);

  Connection& centro_;
  std::int32_t section_;
  cConstCol estados_;
};

}  // namespace quorvane
