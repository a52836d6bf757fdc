#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

// The pending subjects of a student in an ordinary evaluation, without those that any form has
// locked.

/// Those of a teacher.
Recordset MateriasDeProfesor(std::int32_t idAlumno, std::int32_t evaluacion,
                             std::int16_t gIDPersonal);

/// All of them.
Recordset MateriasDeAlumno(std::int32_t idAlumno, std::int32_t evaluacion);

/// That one alone.
Recordset MateriaDeAlumno(std::int32_t idAlumno, std::int32_t codMatDet, std::int32_t evaluacion);

/// The kind of a subject, as `ClaseMateria` names them. None when it is gone from the school's
/// subjects.
std::optional<std::int32_t> ClaseDeMateria(std::int32_t codMatDet);

/// Deletes the grades of a pending row whose subject is gone: the first part of its purge.
void BorrarNotas(std::int32_t idAlumnoPteMatDet);
/// The whole purge: the grades, then the row.
void PurgarMateria(std::int32_t idAlumnoPteMatDet);

/// The row of `MateriaDetalles`: the subject as it was taught in a section of an earlier course.
struct DetallesMateria {
  std::int32_t CodPersonal = 0;
  std::int32_t CodPersonalAsociado = 0;
  std::int32_t CodMateria = 0;
  std::int16_t CodSeccion = 0;
};

/// Error 3021 when it is gone, 6 for a section beyond 16 bits. Without `conProfesores` the teachers
/// stay 0, whatever the row says.
DetallesMateria LeerDetalles(std::int32_t codMatDet, bool conProfesores = true);

/// How lists name a subject: "{subject} ({course})", the course by the section. Error 3021 when
/// one of them is gone.
std::string NombreMateria(const DetallesMateria& detalles);

/// Whether the grade passes. Error 3021 when it is gone.
bool NotaAprobada(std::int32_t idNota);

/// The name of the tutor's observation in that type of teaching; none without such a kind.
std::optional<std::string> NombreObservacion(std::int32_t tipo);

}  // namespace quorvane
