#pragma once

#include <cstdint>
#include <string>

#include "frame/Conexiones.h"
#include "grades/final/FormularioFinal.h"  // IWYU pragma: keep (the concept)
#include "grades/grid/Anchos.h"
#include "grades/grid/Escala.h"
#include "register/cMateria.h"

namespace quorvane {

class Connection;
class Retivo;

// The grid of the final grade forms: a final evaluation has a grade or a concept, an observation
// and a measure. The columns that edit are these; the ones behind them hold keys.

inline constexpr int kColumnaNota = 1;
inline constexpr int kColumnaConcepto = 2;
inline constexpr int kColumnaObservacion = 5;
inline constexpr int kColumnaMedidas = 6;

/// A school never sees procedures or attitudes here, and concepts only without a main grade. Runs
/// behind whatever sets widths.
void OcultarColumnas(Retivo& rejilla);

/// `RestaurarAnchosAlumno`: the kept widths, without those columns.
void RestaurarAnchosFinales(Retivo& rejilla, const Anchos& anchos, bool cargando);

/// `ConfigurarColumnas` up to the rows: empties the grid and gives it that many columns under the
/// form's headings and "Medidas Adoptadas", those of the grades as wide as the scale says, which is
/// read on the first load, or as they were kept. Errors as `LeerEscala`.
template <FormularioFinal F>
void PrepararRejilla(F& form, int columnas, std::int32_t anchoPrimera, std::int32_t tipo) {
  auto& rejilla = form.rtvNotasAlumno;
  rejilla.Clear();
  PrepararColumnas(rejilla, columnas, anchoPrimera, form.strColumna);
  rejilla.TextMatrix(0, kColumnaMedidas, "Medidas Adoptadas");
  rejilla.ColWidth(kColumnaMedidas, form.blnMedidas ? kAnchoNota : 0);
  if (form.blnCargando) {
    LeerEscala(rejilla, TiposDeNotaFinal(Centro(), tipo), form.intAnchosAlumno, form.strColumna);
    form.intAnchosAlumno.Guardar(rejilla, form.blnCargando, true);
  } else {
    form.intAnchosAlumno.Restaurar(rejilla, form.blnCargando);
  }
  OcultarColumnas(rejilla);
}

/// Makes the first row under the heading current, once there is one.
void SeleccionarPrimeraFila(Retivo& rejilla);

/// The click of the combo box that the form walks: builds the grid afresh for its entry. While the
/// rows are written the grid is so high that it neither scrolls nor clips.
template <FormularioFinal F>
void ReconstruirRejilla(F& form) {
  constexpr std::int32_t kAltoConstruccion = 17670;
  auto& rejilla = form.rtvNotasAlumno;
  form.blnEdicionActiva = false;
  rejilla.Redraw(false);
  const auto alto = rejilla.Height();
  rejilla.Height(kAltoConstruccion);
  rejilla.Visible(false);
  form.ConfigurarColumnas();
  rejilla.Height(alto);
  SeleccionarPrimeraFila(rejilla);
  rejilla.Visible(true);
  rejilla.Redraw(true);
  form.blnEdicionActiva = true;
}

/// What a row shows of a measure code, empty for a code beyond 2. The list that a cell offers
/// spells its last text with the accent, this one without.
std::string TextoMedida(std::uint8_t medida);

/// Writes the texts of grade, concept, observation and measure in a row.
void EscribirNotasFinales(Connection& centro, Retivo& rejilla, int fila, const cMateria& materia);

/// Adds the measures to the list of their column; none for a subject without a grade.
void LlenarMedidas(Retivo& rejilla, const cMateria& materia);

/// Writes the value into the field of that column; nothing happens for a column without one.
/// Error 6 for a measure beyond 8 bits.
void AsignarNotaFinal(cMateria& materia, int columna, std::int32_t valor);

}  // namespace quorvane
