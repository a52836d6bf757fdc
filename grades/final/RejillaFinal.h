#pragma once

#include <cstdint>
#include <string>

#include "grades/grid/Escala.h"
#include "grades/loading/DatosPasoUno.h"
#include "register/cMateria.h"

namespace quorvane {

class Anchos;
class Retivo;

// The grid of the final grade forms: a final evaluation has a grade or a concept, an observation
// and a measure. The columns that edit are these; the ones behind them hold keys.

inline constexpr int kColumnaNota = 1;
inline constexpr int kColumnaConcepto = 2;
inline constexpr int kColumnaObservacion = 5;
inline constexpr int kColumnaMedidas = 6;

/// How a form builds its grid.
struct ConstruccionFinal {
  int columnas = 0;
  std::int32_t anchoPrimera = 0;
  bool medidas = false;   ///< the column of the measures shows
  bool cargando = false;  ///< the first load: the scale is read, and its widths are kept
};

/// `ConfigurarColumnas` up to the rows: empties the grid and gives it its columns under the
/// headings `strColumna` and "Medidas Adoptadas", those of the grades as wide as the scale says or
/// as they were kept. Errors as `LeerEscala`.
void PrepararRejillaFinal(Retivo& rejilla, const ConstruccionFinal& construccion, std::int32_t tipo,
                          Anchos& anchos, Titulos& strColumna);

/// A school never sees procedures or attitudes here, and concepts only without a main grade. Runs
/// behind whatever sets widths.
void OcultarColumnas(Retivo& rejilla);

/// `RestaurarAnchosAlumno`: the kept widths, without those columns.
void RestaurarAnchosFinales(Retivo& rejilla, const Anchos& anchos, bool cargando);

/// What a row shows of a measure code, empty for a code beyond 2. The list that a cell offers
/// spells its last text with the accent, this one without.
std::string TextoMedida(std::uint8_t medida);

/// Writes the texts of grade, concept, observation and measure in a row.
void EscribirNotasFinales(Retivo& rejilla, int fila, const cMateria& materia);

/// Makes the first row under the heading current, once there is one.
void SeleccionarPrimeraFila(Retivo& rejilla);

/// Adds the measures to the list of their column; none for a subject without a grade.
void LlenarMedidas(Retivo& rejilla, const cMateria& materia);

/// What the list of grades of a cell of that column is read with. `codMateria` is whatever the form
/// compares `CodMateria` with.
std::string SentenciaCeldaFinal(const DatosPasoUno& seleccion, int columna, const cMateria& materia,
                                const std::string& codMateria, bool sinExcepcionales);

/// The data of the entry chosen in the cell just edited; 0 for none.
std::int32_t DatoElegido(const Retivo& rejilla);

/// Writes the value into the field of that column; nothing happens for a column without one.
/// Error 6 for a measure beyond 8 bits.
void AsignarNotaFinal(cMateria& materia, int columna, std::int32_t valor);

}  // namespace quorvane
