#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

struct EvaluacionElegida;

/// Whose pending subjects, in which evaluation, and for whose eyes.
struct MateriasSeccion {
  std::int32_t seccion = 0;  ///< the section that keeps the register
  std::int32_t evaluacion = 0;
  std::int32_t tipoEnsenanza = 0;
  std::int16_t idPersonal = 0;
  bool blnTutor = false;  ///< all subjects of the section, else those that `idPersonal` teaches

  /// The subjects of the section's register in that evaluation that nobody has locked; of a second
  /// final evaluation only those that some student hasn't passed, and the work placements.
  [[nodiscard]] Recordset Leer(const EvaluacionElegida& elegida) const;

 private:
  [[nodiscard]] std::string Sentencia(bool blnFinal) const;
  [[nodiscard]] Recordset SegundaFinal(Recordset materias) const;
};

/// The entry of a subject: its name, and in brackets the course in which it was taught.
std::string TextoMateria(const std::string& clave, const Recordset& fila);

}  // namespace quorvane
