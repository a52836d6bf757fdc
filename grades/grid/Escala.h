#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

class Anchos;
class Connection;
class Retivo;

// The scale of a type of teaching: which kinds of grade a subject gets and what they are called.
// Each is a column of the grid, by its `Orden`.

/// The headings of columns 0 to 5, `strColumna0` to `strColumna5`, kept from one build of the grid
/// to the next.
using Titulos = std::array<std::string, 6>;

inline constexpr std::int32_t kAnchoNota = 2000;  ///< of a column whose kind of grade exists

/// A column of a grid before the scale is known.
struct ColumnaInicial {
  std::int32_t ancho = 0;
  const char* titulo = "";
};

/// Gives the grid these columns, and one row with their headings.
void ConfigurarRejilla(Retivo& rejilla, std::initializer_list<ColumnaInicial> columnas);

/// Gives the grid that many columns and one row: the first column with that width, all others
/// hidden, columns 0 to 5 under their kept headings.
void PrepararColumnas(Retivo& rejilla, int columnas, std::int32_t anchoPrimera,
                      const Titulos& strColumna);

/// What heads the column of the subjects. Error 3021 when the type of teaching has no ordinary
/// kind of subject.
std::string TituloMaterias(Connection& centro, std::int32_t tipo);

/// The kinds of grade of the subjects of that type of teaching: `Nombre` and `Orden`.
Recordset TiposDeNota(Connection& centro, std::int32_t tipo);

/// The same for a final evaluation, whose statement spells a column otherwise.
Recordset TiposDeNotaFinal(Connection& centro, std::int32_t tipo);

/// For each of those kinds gives its column its width and heading, makes room in `anchos` and keeps
/// the heading of columns 1 to 5. Error 381 for a kind whose `Orden` is off the grid.
void LeerEscala(Retivo& rejilla, Recordset tipos, Anchos& anchos, Titulos& strColumna);

/// Writes the text of a grade in a cell; a grade that doesn't exist, as 0, leaves it as it is.
void EscribirNota(Connection& centro, Retivo& rejilla, int fila, int columna, std::int32_t idNota);

}  // namespace quorvane
