#pragma once

#include <cstdint>
#include <vector>

#include "grades/loading/DatosPasoUno.h"
#include "grades/subject/MateriasDeCombo.h"
#include "platform/Collection.h"
#include "register/cAlumno.h"

namespace quorvane {

class CheckBox;
class ComboBox;
class Form;
class Retivo;

// What the two final grade forms that walk subjects do alike: a row is a student, and the entry
// chosen in the combo box says which of his subjects it shows.

/// Reads what the course says of promotion and of measures. `chkPromocion` is hidden at once for
/// code 0, and named for codes 1 and 2, which set `bytPromocion`; any other code changes nothing.
/// Error 3021 for a course that is gone.
void LeerCurso(std::int32_t curso, CheckBox& chkPromocion, std::uint8_t& bytPromocion,
               bool& blnMedidas);

/// Fills the combo box with those subjects, counted from 1, and selects the first. Without any it
/// stays as it is.
void LlenarComboMaterias(ComboBox& cboMaterias, const std::vector<MateriaDeCombo>& materias);

/// Adds a row for each student who has that subject: his name, his grades and measure, and his key
/// in the last column. None for an entry that is no subject.
void LlenarFilasFinales(Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                        const MateriaDeCombo& entrada);

/// Fills the list of the current cell: measures, or grades, the exceptional ones too. No grades for
/// an entry that is no subject. Error 5 when the student of the row isn't there or lacks it.
void LlenarCeldaDeMateria(Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                          const MateriaDeCombo& entrada, const DatosPasoUno& seleccion,
                          const Form& form);

/// Writes what was chosen in the current cell into the student's subject, unless the entry is no
/// subject. Errors as above, and as `AsignarNotaFinal`.
void TomarCeldaDeMateria(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                         const MateriaDeCombo& entrada);

}  // namespace quorvane
