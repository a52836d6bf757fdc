#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "grades/loading/DatosPasoUno.h"
#include "platform/data/Sql.h"
#include "register/cMateria.h"

namespace quorvane {

class Connection;
class Retivo;

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
void LeerNotas(Connection& centro, cMateria& materia, std::int32_t evaluacion);

/// Writes the texts of the five grades in a row of the grid.
void EscribirNotas(Connection& centro, Retivo& rejilla, int fila, const cMateria& materia);

/// What the grades that a cell of that column may take are read with, `IDNota` and
/// `DescripcionCorta`: of the section's model, the course, the evaluation, the subject and its
/// teachers, each grade general or of exactly that. Exceptional grades aren't among them. No row is
/// an objective's: nobody asks for `objetivo`.
std::string SentenciaCelda(const DatosPasoUno& pasoUno, int columna, const cMateria& materia,
                           bool objetivo = false);

/// Writes the grades of a subject. The statement has seven places: CodNota, CodNotaActitud,
/// CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, the evaluation, the subject's row.
void GuardarNotas(Connection& centro, SqlText<7> sentencia, const cMateria& materia,
                  std::int32_t evaluacion);

/// Writes the grades of a subject whose main grade is none. Whether it was ever graded stays.
void GuardarSinNota(Connection& centro, const cMateria& materia, std::int32_t evaluacion);

}  // namespace quorvane
