#pragma once

#include <cstdint>

#include "frame/Conexiones.h"
#include "grades/final/FormularioFinal.h"  // IWYU pragma: keep (the concept)
#include "grades/final/RejillaFinal.h"
#include "grades/grid/Escala.h"
#include "grades/loading/DatosPasoUno.h"
#include "platform/data/Collection.h"
#include "register/cAlumno.h"

namespace quorvane {

class ComboBox;
class Connection;
class Form;
class Retivo;

// What the two final grade forms that walk students do alike: a row is a subject of the student
// chosen in the combo box. Its last column keys it, and the one before says whether it may be
// edited.

/// Fills the combo box with the students and selects the first. Without any it stays as it is.
void LlenarComboAlumnos(Connection& centro, ComboBox& cboAlumnos,
                        const Collection<cAlumno>& colAlumnos);

/// The grid before the scale is known.
void ConfigurarRejillaDeAlumno(Retivo& rejilla);

/// Adds a row for each of those subjects, with its grades and its measure.
void LlenarFilasDeAlumno(Connection& centro, Retivo& rejilla, const Collection<cMateria>& materias);

/// `ConfigurarColumnas` under the headings that the form has set: columns, rows, widths.
template <FinalPorAlumno F>
void ConfigurarColumnasDeAlumno(F& form, std::int32_t tipo) {
  constexpr int kColumnas = 9;
  form.blnEdicionActiva = false;
  PrepararRejilla(form, kColumnas, kAnchoNota, tipo);
  LlenarFilasDeAlumno(Centro(), form.rtvNotasAlumno, form.AlumnoActual().colMateria);
  form.rtvNotasAlumno.ColWidth(kColumnas - 2, 0);
  form.rtvNotasAlumno.ColWidth(kColumnas - 1, 0);
  form.blnEdicionActiva = true;
  if (!form.blnCargando) form.RestaurarAnchosAlumno();
}

/// Fills the list of the current cell: measures, or the grades that aren't exceptional, none in a
/// row that may not be edited. Error 5 for a row whose subject isn't there.
void LlenarCeldaDeAlumno(Connection& centro, Retivo& rejilla, const Collection<cMateria>& materias,
                         const DatosPasoUno& seleccion, const Form& form);

/// `rtvNotasAlumno_InicioEdicion`, which does nothing in the headings, in the names and in the
/// columns behind the grades.
template <FinalPorAlumno F>
void EmpezarEdicionDeAlumno(F& form) {
  form.RestaurarAnchosAlumno();
  if (!form.blnEdicionActiva) return;
  auto& rejilla = form.rtvNotasAlumno;
  const auto columna = rejilla.Col();
  if (columna == 0 || rejilla.Row() == 0 || columna > rejilla.Cols() - 3) return;
  LlenarCeldaDeAlumno(Centro(), rejilla, form.AlumnoActual().colMateria, form.PasoUno(), form);
}

/// Writes what was chosen in the current cell into the subject of the row, unless that may not be
/// edited. Errors as above, and as `AsignarNotaFinal`.
void TomarCeldaDeAlumno(const Retivo& rejilla, const Collection<cMateria>& materias);

}  // namespace quorvane
