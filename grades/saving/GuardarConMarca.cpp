#include "grades/saving/GuardarConMarca.h"

#include "frame/cConfiguracion.h"
#include "grades/NotasOrdinarias.h"
#include "grades/loading/MateriasPendientes.h"
#include "platform/data/Connection.h"

namespace quorvane {

void GuardarConMarca(Connection& centro, const cMateria& materia, std::int32_t evaluacion,
                     SqlText<2> marcar) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  const auto id = materia.CodAlumno_MateriaDetalles;
  const auto evaluado = materia.Nota > 0;
  if (evaluado) {
    // Whether it passes changes nothing, but a grade that is gone ends the saving here.
    static_cast<void>(NotaAprobada(centro, materia.Nota));
    GuardarNotas(
        centro,
        "UPDATE EvaluacionPte SET Evaluado=-1,CodNota={},CodNotaActitud={}, CodNotaObservacion={},CodNotaConcepto={},CodNotaProcedimiento={} WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}",
        materia, evaluacion);
  } else {
    GuardarSinNota(centro, materia, evaluacion);
  }
  const auto posterior = centro.Execute(Sql(
      "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE UltimaEvaluada={} AND CodNumEvaluacion > {} AND CodAlumnoPte_MatDet = {}",
      verdadero, evaluacion, id));
  if (!posterior.Eof()) return;
  if (evaluado) {
    centro.Execute(Sql(marcar, evaluacion, id));
    centro.Execute(Sql(
        "UPDATE EvaluacionPte SET UltimaEvaluada=0 WHERE CodNumEvaluacion<>{} AND CodAlumnoPte_MatDet = {}",
        evaluacion, id));
    return;
  }
  const auto anterior = centro.Execute(Sql(
      "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE Evaluado={} AND CodNumEvaluacion < {} AND CodAlumnoPte_MatDet = {}",
      verdadero, evaluacion, id));
  if (!anterior.Eof())
    centro.Execute(Sql("UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE IDEvaluacionPte={}",
                       anterior.Fields("IDEvaluacionPte").Long()));
}

}  // namespace quorvane
