#pragma once

#include <cstdint>

#include "platform/data/Recordset.h"

namespace quorvane {

class Connection;
struct EvaluacionElegida;

/// Whose pending subjects, in which evaluation, and for whose eyes.
struct MateriasSeccion {
  std::int32_t seccion = 0;  ///< the section that keeps the register
  std::int32_t evaluacion = 0;
  std::int32_t tipoEnsenanza = 0;
  std::int16_t idPersonal = 0;
  bool blnTutor = false;  ///< all subjects of the section, else those that `idPersonal` teaches

  /// The subjects of the section's register in that evaluation that nobody has locked; of a second
  /// final evaluation only those that some student has failed in a final one, whichever, and the
  /// work placements.
  [[nodiscard]] Recordset Leer(Connection& centro, const EvaluacionElegida& elegida) const;

 private:
  [[nodiscard]] Recordset Ordinarias(Connection& centro) const;
  [[nodiscard]] Recordset Finales(Connection& centro) const;
  [[nodiscard]] Recordset SegundaFinal(Connection& centro) const;
};

}  // namespace quorvane
