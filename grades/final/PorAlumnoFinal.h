#pragma once

#include "grades/loading/DatosPasoUno.h"
#include "platform/Collection.h"
#include "register/cMateria.h"

namespace quorvane {

class Form;
class Retivo;

// What the two final grade forms that walk students do alike: a row is a subject of the student
// chosen in the combo box. Its last column keys it, and the one before says whether it may be
// edited.

/// Adds a row for each of those subjects, with its grades and its measure.
void LlenarFilasDeAlumno(Retivo& rejilla, const Collection<cMateria>& materias);

/// Fills the list of the current cell: measures, or the grades that aren't exceptional, none in a
/// row that may not be edited. Error 5 for a row whose subject isn't there.
void LlenarCeldaDeAlumno(Retivo& rejilla, const Collection<cMateria>& materias,
                         const DatosPasoUno& seleccion, const Form& form);

/// Writes what was chosen in the current cell into the subject of the row, unless that may not be
/// edited. Errors as above, and as `AsignarNotaFinal`.
void TomarCeldaDeAlumno(const Retivo& rejilla, const Collection<cMateria>& materias);

}  // namespace quorvane
