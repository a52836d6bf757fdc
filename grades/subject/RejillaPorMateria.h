#pragma once

#include <cstdint>

#include "grades/dialog/FormularioNotas.h"
#include "grades/dialog/Pantalla.h"
#include "grades/grid/RejillaNotas.h"

namespace quorvane {

// The walk over subjects, with the students of each in the rows. Behind the grades a row has one
// column, the key of its student.

inline constexpr int kColumnasPorMateria = 7;
inline constexpr int kOcultasPorMateria = 1;
inline constexpr std::int32_t kAnchoAlumno = 3000;

/// The entry that is selected in `cboMaterias`. Error 381 with none selected.
template <NotasPorMateria F>
const MateriaDeCombo& EntradaActual(const F& form) {
  return form.aryMaterias[static_cast<std::size_t>(form.cboMaterias.SelectedData()) - 1];
}

/// `ConfigurarColumnas`: the columns, and a row for each student who has the subject.
template <NotasPorMateria F>
void LlenarRejilla(F& form) {
  form.rtvNotasAlumno.Clear();
  const auto paso = form.PasoUno();
  form.strColumna[0] = "Orden en Sección / Alumno";
  PrepararColumnas(form.rtvNotasAlumno, kColumnasPorMateria, kAnchoAlumno, form.strColumna);
  AnchosDeEscala(form, paso.tipo);
  LlenarFilas(Centro(), form.rtvNotasAlumno, form.colAlumnos, EntradaActual(form),
              paso.blnRecuperar);
  RecolocarColumnas(form, kAnchoAlumno);
}

/// `cboMaterias_Click` once something is selected. The tutor's grid isn't filled here.
template <NotasPorMateria F>
void MostrarMateria(F& form) {
  Pantalla().MousePointer(Pointer::Hourglass);
  const auto ancho = OcultarRejillas(form);
  form.ConfigurarColumnas();
  MostrarRejillaAlumno(form, ancho);
  MostrarRejillaTutor(form, ancho);
  Pantalla().MousePointer(Pointer::Default);
}

/// A tutor's edit first fills his pane anew; meanwhile edits wait.
template <NotasPorMateria F>
void LlenarTutorAlEditar(F& form) {
  if (!form.blnEdicionActiva || !form.blnTutor) return;
  form.blnEdicionActiva = false;
  form.CargarNotasTutor();
  form.blnEdicionActiva = true;
}

/// `rtvNotasTutor_CambioAlto`: an entry for each row; the heights themselves are the grid's.
template <NotasPorMateria F>
void AnotarAltosTutor(F& form) {
  if (!form.blnCargando)
    form.intAltosTutor.resize(static_cast<std::size_t>(form.rtvNotasTutor.Rows()));
}

}  // namespace quorvane
