#pragma once

#include <cstdint>

#include "platform/data/Recordset.h"

namespace quorvane {

class Connection;
struct EvaluacionElegida;

/// Which students, in which evaluation, and for whose eyes.
struct AlumnosSeccion {
  std::int32_t seccion = 0;  ///< the section that keeps the register
  std::int32_t evaluacion = 0;
  std::int16_t idPersonal = 0;
  bool blnDocente = false;  ///< only the students with a subject that `idPersonal` teaches

  /// The active students of the section's register with a grade row in that evaluation, of either
  /// table: also with the first final everybody. Of a second final only those with a row of it who
  /// failed a subject of theirs in the first, and, failed or not, who keeps a work placement; who
  /// that is goes by a comparison of keys of two tables. No row when nobody has one of it.
  [[nodiscard]] Recordset Leer(Connection& centro, const EvaluacionElegida& elegida) const;

 private:
  [[nodiscard]] Recordset ConFilas(Connection& centro) const;
  [[nodiscard]] Recordset PendientesDeActa(Connection& centro) const;
  [[nodiscard]] Recordset SegundaFinal(Connection& centro, std::int32_t primeraFinal) const;
};

}  // namespace quorvane
