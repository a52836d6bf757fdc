#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "grades/CeldaNotas.h"
#include "register/cMateria.h"

namespace quorvane {

// The five grades of a subject in an ordinary evaluation. Each is a column of the grid, from 1:
// Nota, Concepto, Procedimiento, Actitud, Observacion.

inline constexpr std::array<std::int32_t cMateria::*, 5> kCamposNota = {
    &cMateria::Nota, &cMateria::Concepto, &cMateria::Procedimiento, &cMateria::Actitud,
    &cMateria::Observacion};

/// Whether a column of the grid is one of the five.
constexpr bool EsColumnaNota(int columna) { return columna >= 1 && columna <= 5; }

/// Writes a grade into the field of that column, which has to be one of the five. With `recuperar`
/// the grade goes to the field of the recovery, which a subject doesn't have: error 438.
void AsignarNota(cMateria& materia, int columna, std::int32_t idNota, bool recuperar);

/// Reads the grades that are stored, and whether they were ever given; without a row they stay as
/// they are.
void LeerNotas(cMateria& materia, std::int32_t evaluacion);

/// Writes the texts of the five grades in a row of the grid.
void EscribirNotas(Retivo& rejilla, int fila, const cMateria& materia);

/// The conditions on `TipoNota` for a cell of that column, on a subject's row or an objective's.
std::string TipoNotaDeCelda(int columna, bool objetivo);

/// "CodNota={n},CodNotaActitud={n}, ...": the five assignments of an UPDATE of `EvaluacionPte`.
std::string AsignacionesNotas(const cMateria& materia);

}  // namespace quorvane
