#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

/// The students of a section, by their order in it: those who neither left nor were taken out of
/// the ordinary year.
Recordset AlumnosDeSeccion(std::int32_t seccion);

/// Of these, the ones with a subject of that teacher in that ordinary evaluation.
Recordset AlumnosDeProfesor(std::int32_t seccion, std::int32_t evaluacion,
                            std::int16_t gIDPersonal);

/// The one student whom step one has chosen, whatever has become of him since.
Recordset AlumnoElegido(std::int32_t idAlumno);

/// Adds the student of the current row, without his name and his subjects. Error 457 for one who
/// is there already.
void AnadirAlumno(Collection<cAlumno>& colAlumnos, const Recordset& fila);

/// How lists name a student: his order in the section, blanks, his name. Error 3021 when he is
/// gone.
std::string AlumnoConOrden(std::int32_t idAlumno);

}  // namespace quorvane
