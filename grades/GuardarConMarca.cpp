#include "grades/GuardarConMarca.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/MateriasPendientes.h"
#include "grades/NotasOrdinarias.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

}  // namespace

void GuardarConMarca(const cMateria& materia, std::int32_t evaluacion, const std::string& igual) {
  const auto verdadero = cConfiguracion::Instancia().Verdadero();
  const auto ev = std::to_string(evaluacion);
  const auto id = std::to_string(materia.CodAlumno_MateriaDetalles);
  const auto evaluado = materia.Nota > 0;
  const auto asignaciones = AsignacionesNotas(materia) + " WHERE CodNumEvaluacion=" + ev +
                            " AND CodAlumnoPte_MatDet = " + id;
  if (evaluado) {
    // Whether it passes changes nothing, but a grade that is gone ends the saving here.
    static_cast<void>(NotaAprobada(materia.Nota));
    Execute("UPDATE EvaluacionPte SET Evaluado=-1," + asignaciones);
  } else {
    Execute("UPDATE EvaluacionPte SET " + asignaciones);
  }
  const auto posterior =
      Execute("SELECT IDEvaluacionPte FROM EvaluacionPte WHERE UltimaEvaluada=" + verdadero +
              " AND CodNumEvaluacion > " + ev + " AND CodAlumnoPte_MatDet = " + id);
  if (!posterior.Eof()) return;
  if (evaluado) {
    Execute("UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion=" + ev +
            " AND CodAlumnoPte_MatDet" + igual + id);
    Execute("UPDATE EvaluacionPte SET UltimaEvaluada=0 WHERE CodNumEvaluacion<>" + ev +
            " AND CodAlumnoPte_MatDet = " + id);
    return;
  }
  const auto anterior =
      Execute("SELECT IDEvaluacionPte FROM EvaluacionPte WHERE Evaluado=" + verdadero +
              " AND CodNumEvaluacion < " + ev + " AND CodAlumnoPte_MatDet = " + id);
  if (!anterior.Eof())
    Execute("UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE IDEvaluacionPte=" +
            std::to_string(anterior.Fields("IDEvaluacionPte").Long()));
}

}  // namespace quorvane
