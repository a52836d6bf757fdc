#include "grades/final/SegundaFinal.h"

#include "frame/ClaseMateria.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

bool SegundaFinal::Ofrece(std::int32_t idAlumnoPteMatDet, std::int32_t clase) {
  if (!elegida_.mblnFinalSeptiembre) return true;
  if (clase == ClaseMateria::kFct) {
    mantiene_ = true;
    return true;
  }
  const auto primera = centro_.Execute(Sql(
      "SELECT Aprobado FROM Nota WHERE IdNota =(SELECT CodNota FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={})",
      elegida_.mlngIdEvaluacionJunio, idAlumnoPteMatDet));
  if (primera.Eof()) {
    mantiene_ = true;
    return false;
  }
  if (primera.Fields("Aprobado").Flag()) return false;
  mantiene_ = true;
  return true;
}

bool SegundaFinal::Conserva(const cAlumno& alumno) const {
  return alumno.colMateria.Count() != 0 && (!elegida_.mblnFinalSeptiembre || mantiene_);
}

}  // namespace quorvane
