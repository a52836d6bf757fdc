#pragma once

#include <cstdint>
#include <string>

#include "grades/loading/DatosPasoUno.h"
#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;

/// The students of a section, by their order in it: those who neither left nor were taken out of
/// the ordinary year.
Recordset AlumnosDeSeccion(Connection& centro, std::int32_t seccion);

/// Of these, the ones with a subject of that teacher in that ordinary evaluation.
Recordset AlumnosDeProfesor(Connection& centro, std::int32_t seccion, std::int32_t evaluacion,
                            std::int16_t gIDPersonal);

/// The one student whom step one has chosen, whatever has become of him since.
Recordset AlumnoElegido(Connection& centro, std::int32_t idAlumno);

/// Adds the student of the current row, without his name and his subjects. Error 457 for one who
/// is there already.
void AnadirAlumno(Collection<cAlumno>& colAlumnos, const Recordset& fila);

/// How lists name a student: his order in the section, blanks, his name. Error 3021 when he is
/// gone.
std::string AlumnoConOrden(Connection& centro, std::int32_t idAlumno);

/// What the handlers of the tutor's pane, of the observation and of the promotion come to once they
/// have found the student whom they would write to: he has no such member. Error 438.
[[noreturn]] void SinMiembro(const cAlumno& alumno);

/// Whether this user grades the whole section: with profile 0, and as its tutor.
bool VeLaSeccion(bool blnTutor);

/// Whether this user grades at all: with profile 0 and below, or as a member of staff.
bool PuedeCalificar(const DatosPasoUno& pasoUno);

}  // namespace quorvane
