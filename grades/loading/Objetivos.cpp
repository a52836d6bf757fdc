#include "grades/loading/Objetivos.h"

#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

Recordset LeerObjetivos(Connection& centro, std::int32_t evaluacion, std::int32_t idAlumno,
                        std::int32_t codMateria) {
  return centro.Execute(Sql(
      "SELECT * FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion={} AND CodAlumno={} AND CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={})) ORDER BY CodAlumno, CodMateriaDetallesAsociada, Orden",
      evaluacion, idAlumno, codMateria));
}

Recordset LeerColumnasDeObjetivos(Connection& centro, std::int32_t evaluacion,
                                  std::int32_t idAlumno, std::int32_t codMateria) {
  return centro.Execute(Sql(
      "SELECT IDAlumno_MateriaDetalles, CodMateriaDetalles, CodMateriaDetallesAsociada, Orden FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion={} AND CodAlumno={} AND CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={})) ORDER BY CodAlumno, CodMateriaDetallesAsociada, Orden",
      evaluacion, idAlumno, codMateria));
}

void RecorrerObjetivos(Connection& centro, Recordset objetivos, std::int32_t evaluacion,
                       bool recuperar) {
  std::int32_t anterior = 0;
  for (; !objetivos.Eof(); objetivos.MoveNext()) {
    const auto codMateriaDetalles = objetivos.Fields("CodMateriaDetalles").Long();
    if (codMateriaDetalles == anterior) continue;
    const auto id = objetivos.Fields("IDAlumno_MateriaDetalles").Long();
    if (recuperar)
      centro.Execute(Sql(
          "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion={} AND (Recuperacion=2 OR Recuperacion=3) AND CodAlumno_MateriaDetalles={}",
          evaluacion, id));
    else
      centro.Execute(Sql(
          "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}",
          evaluacion, id));
    anterior = codMateriaDetalles;
  }
}

}  // namespace quorvane
