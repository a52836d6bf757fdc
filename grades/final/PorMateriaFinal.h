#pragma once

#include <cstdint>
#include <vector>

#include "frame/Conexiones.h"
#include "grades/dialog/Pantalla.h"
#include "grades/final/FormularioFinal.h"  // IWYU pragma: keep (the concept)
#include "grades/final/RejillaFinal.h"
#include "grades/loading/DatosPasoUno.h"
#include "grades/subject/MateriasDeCombo.h"
#include "platform/data/Collection.h"
#include "platform/host/FrontEnd.h"
#include "register/cAlumno.h"

namespace quorvane {

class ComboBox;
class Connection;
class Form;
class Retivo;

// What the two final grade forms that walk subjects do alike: a row is a student, and the entry
// chosen in the combo box says which of his subjects it shows.

/// What the course says of promotion and of measures. Error 3021, when it is read, for a course
/// that is gone.
Recordset FilaDeCurso(Connection& centro, std::int32_t curso);

/// Takes from that whether measures show, and whether `chkPromocion` does. The check box is hidden
/// at once for code 0, and named for codes 1 and 2, which set `bytPromocion`; any other changes
/// nothing. Error 3021 for a course that is gone.
template <FinalPorMateria F>
void LeerCurso(Connection& centro, F& form, std::int32_t curso) {
  const auto fila = FilaDeCurso(centro, curso);
  const auto promocion = fila.Fields("Promocion").Long();
  if (promocion == 0) form.chkPromocion.Visible(false);
  if (promocion == 1 || promocion == 2) {
    form.chkPromocion.Caption(promocion == 1 ? "Promoción" : "Promoción al título");
    form.bytPromocion = 1;
  }
  if (fila.Fields("RE_AC").Flag()) form.blnMedidas = true;
}

/// `Form_Activate` ends: whatever the course and the tutor said, the observation and the check box
/// are never left on the screen.
template <FinalPorMateria F>
void EsconderObservacion(F& form) {
  form.lblNotaManual[1].Caption(form.ObservacionAlumno + " al alumno ");
  form.fraObservacion[0].Visible(false);
  form.chkPromocion.Visible(false);
  Pantalla().MousePointer(Pointer::Default);
}

/// Fills the combo box with those subjects, counted from 1, and selects the first. Without any it
/// stays as it is.
void LlenarComboMaterias(ComboBox& cboMaterias, const std::vector<MateriaDeCombo>& materias);

/// The grid before the scale is known.
void ConfigurarRejillaDeMateria(Retivo& rejilla);

/// Adds a row for each student who has that subject: his name, his grades and measure, and his key
/// in the last column. None for an entry that is no subject.
void LlenarFilasFinales(Connection& centro, Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                        const MateriaDeCombo& entrada);

/// `ConfigurarColumnas`: headings, columns, rows, widths.
template <FinalPorMateria F>
void ConfigurarColumnasDeMateria(F& form) {
  constexpr int kColumnas = 8;
  constexpr std::int32_t kAnchoAlumno = 3000;
  const auto tipo = form.PasoUno().tipo;
  form.strColumna[0] = "Orden en Sección / Alumno";
  form.blnEdicionActiva = false;
  PrepararRejilla(form, kColumnas, kAnchoAlumno, tipo);
  LlenarFilasFinales(Centro(), form.rtvNotasAlumno, form.colAlumnos, form.EntradaActual());
  form.rtvNotasAlumno.ColWidth(kColumnas - 1, 0);
  form.blnEdicionActiva = true;
  if (!form.blnCargando) form.RestaurarAnchosAlumno();
}

/// Fills the list of the current cell: measures, or grades, the exceptional ones too. No grades for
/// an entry that is no subject. Error 5 when the student of the row isn't there or lacks it.
void LlenarListaDeMateria(Connection& centro, Retivo& rejilla,
                          const Collection<cAlumno>& colAlumnos, const MateriaDeCombo& entrada,
                          const DatosPasoUno& seleccion, const Form& form);

/// The same, but nothing in the headings, in the names and in the keys.
template <FinalPorMateria F>
void LlenarCeldaDeMateria(F& form) {
  auto& rejilla = form.rtvNotasAlumno;
  const auto columna = rejilla.Col();
  if (columna == 0 || rejilla.Row() == 0 || columna > rejilla.Cols() - 2) return;
  LlenarListaDeMateria(Centro(), rejilla, form.colAlumnos, form.EntradaActual(), form.PasoUno(),
                       form);
}

/// Writes what was chosen in the current cell into the student's subject, unless the entry is no
/// subject. Errors as above, and as `AsignarNotaFinal`.
void TomarCeldaDeMateria(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                         const MateriaDeCombo& entrada);

}  // namespace quorvane
