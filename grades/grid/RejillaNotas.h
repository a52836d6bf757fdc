#pragma once

#include <cstdint>

#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "grades/dialog/FormularioNotas.h"
#include "grades/grid/CeldaNotas.h"

namespace quorvane {

// The grids of an ordinary grade form: how they are taken off the screen while their rows are
// written, their widths, and what an edit may act on.

/// The columns before the first student or subject is shown.
template <FormularioNotas F>
void PonerColumnasIniciales(F& form, const ColumnaInicial& primera,
                            const ColumnaInicial& delTutor) {
  ConfigurarRejilla(form.rtvNotasAlumno, {primera,
                                          {1000, "Nota"},
                                          {2000, "Concepto"},
                                          {2000, "Procedimiento"},
                                          {2000, "Actitud"},
                                          {2000, "Observacion"}});
  ConfigurarRejilla(form.rtvNotasTutor, {delTutor, {1000, "Nota"}, {2000, "Actitud"}});
}

/// Hides both grids and makes them so wide that they neither scroll nor clip while their rows are
/// written; edits wait meanwhile. Gives back the width of the grid of the grades.
template <FormularioNotas F>
std::int32_t OcultarRejillas(F& form) {
  constexpr std::int32_t kAnchoConstruccion = 17620;
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.Redraw(false);
  form.rtvNotasTutor.Redraw(false);
  form.rtvNotasAlumno.Visible(false);
  const auto ancho = form.rtvNotasAlumno.Width();
  form.rtvNotasAlumno.Width(kAnchoConstruccion);
  form.rtvNotasTutor.Visible(false);
  form.rtvNotasTutor.Width(kAnchoConstruccion);
  return ancho;
}

template <FormularioNotas F>
void MostrarRejillaAlumno(F& form, std::int32_t ancho) {
  form.rtvNotasAlumno.Visible(true);
  form.rtvNotasAlumno.Width(ancho);
}

/// The tutor's grid as wide as the other one; then both are painted, and may be edited.
template <FormularioNotas F>
void MostrarRejillaTutor(F& form, std::int32_t ancho) {
  form.rtvNotasTutor.Width(ancho);
  form.rtvNotasTutor.Visible(true);
  if (form.rtvNotasAlumno.Rows() >= 2) form.rtvNotasAlumno.FixedRows(1);
  if (form.rtvNotasTutor.Rows() >= 2) form.rtvNotasTutor.FixedRows(1);
  form.rtvNotasAlumno.Redraw(true);
  form.rtvNotasTutor.Redraw(true);
  form.blnEdicionActiva = true;
}

/// The columns of the grades: while the form is loading as the scale of that type of teaching
/// says, later as they were kept. Errors as `LeerEscala`.
template <FormularioNotas F>
void AnchosDeEscala(F& form, std::int32_t tipo) {
  if (form.blnCargando) {
    LeerEscala(form.rtvNotasAlumno, TiposDeNota(Centro(), tipo), form.intAnchosAlumno,
               form.strColumna);
    form.GuardarAnchosAlumno(true);
  } else {
    form.RestaurarAnchosAlumno();
  }
}

/// Once the rows are there. The columns behind the grades hold keys and are out of sight, and the
/// first goes to nothing and back: so the grid lays its columns out anew.
template <FormularioNotas F>
void RecolocarColumnas(F& form, std::int32_t anchoPrimera) {
  for (int columna = 6; columna < form.rtvNotasAlumno.Cols(); ++columna)
    form.rtvNotasAlumno.ColWidth(columna, 0);
  form.rtvNotasAlumno.ColWidth(0, 0);
  form.rtvNotasAlumno.ColWidth(0, anchoPrimera);
  if (!form.blnCargando) form.RestaurarAnchosAlumno();
}

/// The cell that is about to be edited takes a grade. `ocultas` is how many columns behind the
/// grades hold keys.
template <FormularioNotas F>
bool CeldaConLista(const F& form, int ocultas) {
  const auto& rejilla = form.rtvNotasAlumno;
  const auto columna = rejilla.Col();
  return !(columna > rejilla.Cols() - 1 - ocultas || rejilla.ColWidth(columna) == 0 ||
           rejilla.Row() == 0 || columna == 0);
}

/// Offers the grades that the current cell may take; a work centre's takes none.
template <FormularioNotas F>
void OfrecerNotas(F& form, const cMateria& materia) {
  if (materia.Fct) return;
  auto& rejilla = form.rtvNotasAlumno;
  const auto columna = rejilla.Col();
  rejilla.ListaLimpiar(columna);
  rejilla.ListaAnadir(columna, " ", 0);
  LlenarLista(Centro(), rejilla, columna, SentenciaCelda(form.PasoUno(), columna, materia), form);
}

/// The edit that has ended was of a grade.
template <FormularioNotas F>
bool NotaEditada(const F& form) {
  const auto columna = form.rtvNotasAlumno.Col();
  return form.rtvNotasAlumno.ColWidth(columna) >= 1 && form.rtvNotasAlumno.Row() >= 1 &&
         form.blnEdicionActiva && EsColumnaNota(columna);
}

/// The tutor's pane: fills it as `LlenarPanelTutor` says.
template <FormularioNotas F>
void LlenarTutor(F& form) {
  LlenarPanelTutor(Centro(),
                   {.rtvNotasTutor = form.rtvNotasTutor,
                    .fraObservacion = form.fraObservacion[0],
                    .lblObservacion = form.lblNotaManual[1],
                    .cboObservacion = form.cboObservacion},
                   form.tutor, form.PasoUno(), form.blnCargando);
}

/// The edit that has ended was of a grade of the tutor's.
template <FormularioNotas F>
bool NotaTutorEditada(const F& form) {
  const auto columna = form.rtvNotasTutor.Col();
  return form.rtvNotasTutor.Row() >= 1 && form.blnEdicionActiva && (columna == 1 || columna == 2);
}

}  // namespace quorvane
