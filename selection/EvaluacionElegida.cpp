#include "selection/EvaluacionElegida.h"

#include "frame/cConfiguracion.h"
#include "platform/controls/CheckBox.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

Recordset LeerFinal(Connection& centro, std::int32_t evaluacion) {
  return centro.Execute(
      Sql("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion={}", evaluacion));
}

Recordset LeerFinalAlElegir(Connection& centro, std::int32_t evaluacion) {
  return centro.Execute(
      Sql("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion = {}", evaluacion));
}

Recordset LeerFinalYOrden(Connection& centro, std::int32_t evaluacion) {
  return centro.Execute(
      Sql("SELECT Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion = {}", evaluacion));
}

bool EsSegundaFinal(const Recordset& filaDeFinal) {
  return filaDeFinal.Fields("Orden").Long() == 2;
}

std::int32_t LeerPrimeraFinal(Connection& centro) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  return centro
      .Execute(
          Sql("SELECT IdNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1", verdadero))
      .Fields("IDNUMEVALUACION")
      .Long();
}

EvaluacionElegida LeerEvaluacion(Connection& centro, std::int32_t evaluacion) {
  const auto fila = LeerFinalYOrden(centro, evaluacion);
  EvaluacionElegida elegida;
  elegida.Final = fila.Fields("Final").Flag();
  elegida.SegundaFinal = elegida.Final && EsSegundaFinal(fila);
  if (!elegida.SegundaFinal) return elegida;
  // Not `LeerPrimeraFinal`: the column is spelled otherwise.
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  elegida.PrimeraFinal =
      centro
          .Execute(Sql("SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1",
                       verdadero))
          .Fields("IDNUMEVALUACION")
          .Long();
  return elegida;
}

void OcultarRecuperacion(CheckBox& chkRecuperacion) {
  chkRecuperacion.Value(0);
  chkRecuperacion.Visible(false);
}

bool AdmiteRecuperacion(Connection& centro, CheckBox& chkRecuperacion, bool blnFinal,
                        bool blnPosibleRecuperacion, std::int32_t seccion) {
  if (!blnFinal && blnPosibleRecuperacion) {
    const auto fila =
        centro.Execute(Sql("SELECT Seguimiento FROM Seccion WHERE IDSeccion={}", seccion));
    if (!fila.Eof() && fila.Fields("Seguimiento").Flag()) {
      chkRecuperacion.Value(0);
      return true;
    }
  }
  OcultarRecuperacion(chkRecuperacion);
  return false;
}

}  // namespace quorvane
