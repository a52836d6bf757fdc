#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Sql.h"

namespace quorvane {

// An objective that hangs from a subject, carried forward in the host's main grade book. The two
// are not mirror images: one adds to the next evaluation alone, the other removes from all later
// ones. Later are the evaluations that follow by `Orden`, aren't final and are given in the
// section. Fails as the statements do; error 3021 where a row that has to be there isn't.

/// The key of a new row, as `ObtenerSiguienteId` gives it, with a name for the column that is read.
std::int32_t SiguienteIdMax(const std::string& tabla, const std::string& campo);

/// What differs between the forms in adding.
struct TextosAnadir {
  /// Takes the key of a new row: table, column.
  std::int32_t (*siguienteId)(const std::string&, const std::string&) = SiguienteIdMax;
  std::string mensaje;  ///< of the loop of attempts
  /// Looks for an objective that is there already: student, evaluation, objective.
  SqlText<3> buscarObjetivo;
  /// Writes the sixteen empty grades: key, the objective's row, evaluation.
  SqlText<3> insertarNotas;
};

/// `materia` and `objetivo` are ids of `Materia`. Error 429 when the host has no
/// `ZendriaApi.cCentroApi`.
void AnadirEnEvaluacionSiguiente(std::int32_t seccion, std::int32_t evaluacion, std::int32_t alumno,
                                 std::int32_t materia, std::int32_t objetivo,
                                 const TextosAnadir& textos);

/// Does nothing unless `objetivo` is above 0. `borrarNotas` deletes the grades: the objective's
/// row, evaluation.
void QuitarDeEvaluacionesPosteriores(std::int32_t seccion, std::int32_t evaluacion,
                                     std::int32_t alumno, std::int32_t materia,
                                     std::int32_t objetivo, SqlText<2> borrarNotas);

}  // namespace quorvane
