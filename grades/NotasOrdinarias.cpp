#include "grades/NotasOrdinarias.h"

#include "frame/cConfiguracion.h"
#include "grades/grid/Escala.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"

namespace quorvane {

void AsignarNota(cMateria& materia, int columna, std::int32_t idNota, bool recuperar) {
  if (recuperar) throw RuntimeError(ErrorNumber::MissingMember);
  materia.*kCamposNota[static_cast<std::size_t>(columna) - 1] = idNota;
}

void LeerNotas(Connection& centro, cMateria& materia, std::int32_t evaluacion) {
  const auto recordset = centro.Execute(Sql(
      "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento FROM EvaluacionPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}",
      evaluacion, materia.CodAlumno_MateriaDetalles));
  if (recordset.Eof()) return;
  materia.Evaluado = recordset.Fields("Evaluado").Flag();
  materia.Nota = recordset.Fields("CodNota").Long();
  materia.Actitud = recordset.Fields("CodNotaActitud").Long();
  materia.Observacion = recordset.Fields("CodNotaObservacion").Long();
  materia.Concepto = recordset.Fields("CodNotaConcepto").Long();
  materia.Procedimiento = recordset.Fields("CodNotaProcedimiento").Long();
}

void EscribirNotas(Connection& centro, Retivo& rejilla, int fila, const cMateria& materia) {
  for (std::size_t i = 0; i < kCamposNota.size(); ++i)
    EscribirNota(centro, rejilla, fila, static_cast<int>(i) + 1, materia.*kCamposNota[i]);
}

std::string SentenciaCelda(const DatosPasoUno& pasoUno, int columna, const cMateria& materia,
                           bool objetivo) {
  const std::int32_t verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  if (objetivo)
    return Sql(
        "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia=0 AND Observacion={} AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
        pasoUno.seccion, pasoUno.curso, pasoUno.evaluacion, materia.IDMatDetalle,
        materia.IDProfesor, materia.IDProfesorAsociado, columna, verdadero, verdadero,
        pasoUno.tipo);
  return Sql(
      "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
      pasoUno.seccion, pasoUno.curso, pasoUno.evaluacion, materia.IDMatDetalle, materia.IDProfesor,
      materia.IDProfesorAsociado, columna, verdadero, verdadero, pasoUno.tipo);
}

void GuardarNotas(Connection& centro, SqlText<7> sentencia, const cMateria& materia,
                  std::int32_t evaluacion) {
  centro.Execute(Sql(sentencia, materia.Nota, materia.Actitud, materia.Observacion,
                     materia.Concepto, materia.Procedimiento, evaluacion,
                     materia.CodAlumno_MateriaDetalles));
}

void GuardarSinNota(Connection& centro, const cMateria& materia, std::int32_t evaluacion) {
  GuardarNotas(
      centro,
      "UPDATE EvaluacionPte SET CodNota={},CodNotaActitud={}, CodNotaObservacion={},CodNotaConcepto={},CodNotaProcedimiento={} WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}",
      materia, evaluacion);
}

}  // namespace quorvane
