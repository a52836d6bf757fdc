#include "grades/Objetivos.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

}  // namespace

Recordset LeerObjetivos(const std::string& columnas, std::int32_t evaluacion, std::int32_t idAlumno,
                        std::int32_t codMateria) {
  return Execute("SELECT " + columnas + " FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion=" +
                 std::to_string(evaluacion) + " AND CodAlumno=" + std::to_string(idAlumno) +
                 " AND CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT "
                 "IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria=" +
                 std::to_string(codMateria) +
                 ")) ORDER BY CodAlumno, CodMateriaDetallesAsociada, Orden");
}

void RecorrerObjetivos(Recordset objetivos, std::int32_t evaluacion, bool recuperar) {
  std::int32_t anterior = 0;
  for (; !objetivos.Eof(); objetivos.MoveNext()) {
    const auto codMateriaDetalles = objetivos.Fields("CodMateriaDetalles").Long();
    if (codMateriaDetalles == anterior) continue;
    Execute(
        "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, "
        "CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, "
        "CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion=" +
        std::to_string(evaluacion) + (recuperar ? " AND (Recuperacion=2 OR Recuperacion=3)" : "") +
        " AND CodAlumno_MateriaDetalles=" +
        std::to_string(objetivos.Fields("IDAlumno_MateriaDetalles").Long()));
    anterior = codMateriaDetalles;
  }
}

}  // namespace quorvane
