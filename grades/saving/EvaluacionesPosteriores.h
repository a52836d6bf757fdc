#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Sql.h"

namespace quorvane {

// An objective that hangs from a subject, carried forward in the host's main grade book. The two
// are not mirror images: one adds to the next evaluation alone, the other removes from all later
// ones. Later are the evaluations that follow by `Orden`, aren't final and are given in the
// section. Fails as the statements do; error 3021 where a row that has to be there isn't.

/// What differs between the forms in adding.
struct TextosAnadir {
  // The largest keys of the rows that it adds, as `ObtenerSiguienteId` asks for them.
  SqlText<0> maximaInscripcion =
      "SELECT MAX(IDAlumno_NumEvaluacion) AS IDMax FROM [Alumno_NumEvaluacion]";
  SqlText<0> maximoObjetivo =
      "SELECT MAX(IDAlumno_MateriaDetalles) AS IDMax FROM [Alumno_MateriaDetalles]";
  SqlText<0> maximasNotas = "SELECT MAX(IDEvaluacion) AS IDMax FROM [Evaluacion]";
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
