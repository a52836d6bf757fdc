#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "grades/loading/DatosPasoUno.h"
#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;
struct DetallesMateria;

// How the ordinary grade forms find students, subjects and grades. In which order a form asks, and
// what it keys its subjects by, is told in the form. Statements fail as they do; nothing is caught.

/// The students of the section whom this user grades: all of them for profile 0 and the tutor,
/// those of his own subjects for a teacher, and a recordset that isn't open for anybody else.
Recordset AlumnosVisibles(Connection& centro, const DatosPasoUno& pasoUno, bool blnTutor);

/// The pending subjects of a student that this user grades; nothing for one who grades none.
std::optional<Recordset> MateriasVisibles(Connection& centro, std::int32_t idAlumno,
                                          const DatosPasoUno& pasoUno, bool blnTutor);

/// The subject of a pending row as it is before anything is read of it. `idMatDetalle` is what the
/// form keys it by.
std::shared_ptr<cMateria> NuevaMateria(const Recordset& fila, std::int32_t idMatDetalle);

/// The grades of a subject of that kind; one that isn't ordinary has none, and counts as a work
/// centre. Error 3021 for a grade that is gone.
void CargarNotasDeClase(Connection& centro, cMateria& materia, std::int32_t clase,
                        std::int32_t evaluacion);

/// The row of `MateriaDetalles` as three of the forms look for it. Error 3265 for a kind that isn't
/// ordinary: a pending row lacks the column that those are found by.
DetallesMateria DetallesDeClase(Connection& centro, const Recordset& fila, std::int32_t codMatDet,
                                std::int32_t clase);

/// Gives the subject what that row says of it, and its name, and the student the subject. Errors
/// as `NombreMateria`; 457 for a subject that he has already.
void AnadirMateria(Connection& centro, cAlumno& alumno, std::shared_ptr<cMateria> materia,
                   const DetallesMateria& detalles);

}  // namespace quorvane
