#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

class Connection;
class cMateria;

// The pending subjects of a student in an ordinary evaluation, without those that any form has
// locked.

/// Those of a teacher.
Recordset MateriasDeProfesor(Connection& centro, std::int32_t idAlumno, std::int32_t evaluacion,
                             std::int16_t gIDPersonal);

/// All of them.
Recordset MateriasDeAlumno(Connection& centro, std::int32_t idAlumno, std::int32_t evaluacion);

/// That one alone.
Recordset MateriaDeAlumno(Connection& centro, std::int32_t idAlumno, std::int32_t codMatDet,
                          std::int32_t evaluacion);

/// The kind of a subject, as `ClaseMateria` names them. None when it is gone from the school's
/// subjects.
std::optional<std::int32_t> ClaseDeMateria(Connection& centro, std::int32_t codMatDet);

/// Deletes the grades of a pending row whose subject is gone: the first part of its purge.
void BorrarNotas(Connection& centro, std::int32_t idAlumnoPteMatDet);
/// The whole purge: the grades, then the row.
void PurgarMateria(Connection& centro, std::int32_t idAlumnoPteMatDet);

/// The row of `MateriaDetalles`: the subject as it was taught in a section of an earlier course.
struct DetallesMateria {
  std::int32_t CodPersonal = 0;
  std::int32_t CodPersonalAsociado = 0;
  std::int32_t CodMateria = 0;
  std::int16_t CodSeccion = 0;
};

/// Error 3021 when it is gone, 6 for a section beyond 16 bits. Without `conProfesores` the teachers
/// stay 0, whatever the row says.
DetallesMateria LeerDetalles(Connection& centro, std::int32_t codMatDet, bool conProfesores = true);

/// How lists name a subject: "{subject} ({course})", the course by the section. Error 3021 when
/// one of them is gone.
std::string NombreMateria(Connection& centro, const DetallesMateria& detalles);

/// Takes ids, teachers and name from the subject as it was taught. Errors as `NombreMateria`.
void TomarDetalles(Connection& centro, cMateria& materia, const DetallesMateria& detalles);

/// Whether the grade passes. Error 3021 when it is gone.
bool NotaAprobada(Connection& centro, std::int32_t idNota);

/// The name of the tutor's observation in that type of teaching; none without such a kind.
std::optional<std::string> NombreObservacion(Connection& centro, std::int32_t tipo);

}  // namespace quorvane
