#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

struct EvaluacionElegida;

/// Which students, in which evaluation, and for whose eyes.
struct AlumnosSeccion {
  std::int32_t seccion = 0;  ///< the section that keeps the register
  std::int32_t evaluacion = 0;
  std::int16_t idPersonal = 0;
  bool blnDocente = false;  ///< only the students with a subject that `idPersonal` teaches

  /// The students of the section's register with grade rows in that evaluation; of a second final
  /// evaluation only those who failed the first.
  [[nodiscard]] Recordset Leer(const EvaluacionElegida& elegida) const;

 private:
  [[nodiscard]] std::string Mitad(const std::string& tabla) const;
  [[nodiscard]] std::string SentenciaPendientes() const;
  [[nodiscard]] Recordset SegundaFinal(Recordset pendientes, std::int32_t primeraFinal) const;
};

/// The entry of a student: his name, surnames first.
std::string TextoAlumno(const std::string& clave, const Recordset& fila);

}  // namespace quorvane
