#include "grades/NotasOrdinarias.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/Escala.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"

namespace quorvane {

void AsignarNota(cMateria& materia, int columna, std::int32_t idNota, bool recuperar) {
  if (recuperar) throw RuntimeError(ErrorNumber::MissingMember);
  materia.*kCamposNota[static_cast<std::size_t>(columna) - 1] = idNota;
}

void LeerNotas(cMateria& materia, std::int32_t evaluacion) {
  const auto recordset = Centro().Execute(
      "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, "
      "CodNotaProcedimiento FROM EvaluacionPte WHERE CodNumEvaluacion=" +
      std::to_string(evaluacion) +
      " AND CodAlumnoPte_MatDet=" + std::to_string(materia.CodAlumno_MateriaDetalles));
  if (recordset.Eof()) return;
  materia.Evaluado = recordset.Fields("Evaluado").Flag();
  materia.Nota = recordset.Fields("CodNota").Long();
  materia.Actitud = recordset.Fields("CodNotaActitud").Long();
  materia.Observacion = recordset.Fields("CodNotaObservacion").Long();
  materia.Concepto = recordset.Fields("CodNotaConcepto").Long();
  materia.Procedimiento = recordset.Fields("CodNotaProcedimiento").Long();
}

void EscribirNotas(Retivo& rejilla, int fila, const cMateria& materia) {
  for (std::size_t i = 0; i < kCamposNota.size(); ++i)
    EscribirNota(rejilla, fila, static_cast<int>(i) + 1, materia.*kCamposNota[i]);
}

std::string TipoNotaDeCelda(int columna, bool objetivo) {
  const auto verdadero = cConfiguracion::Instancia().Verdadero();
  return "Orden=" + std::to_string(columna) + " AND Materia=" + (objetivo ? "0" : verdadero) +
         " AND Observacion=" + (objetivo ? verdadero : "0") + " AND Evaluacion=" + verdadero;
}

std::string AsignacionesNotas(const cMateria& materia) {
  return "CodNota=" + std::to_string(materia.Nota) +
         ",CodNotaActitud=" + std::to_string(materia.Actitud) +
         ", CodNotaObservacion=" + std::to_string(materia.Observacion) +
         ",CodNotaConcepto=" + std::to_string(materia.Concepto) +
         ",CodNotaProcedimiento=" + std::to_string(materia.Procedimiento);
}

}  // namespace quorvane
