#include "selection/EvaluacionElegida.h"

#include <string>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/CheckBox.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

Recordset Leer(const std::string& statement) { return Centro().Execute(statement); }

}  // namespace

Recordset LeerFinal(std::int32_t evaluacion) {
  return Leer("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion=" +
              std::to_string(evaluacion));
}

Recordset LeerFinalYOrden(std::int32_t evaluacion) {
  return Leer("SELECT Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion = " +
              std::to_string(evaluacion));
}

EvaluacionElegida LeerEvaluacion(std::int32_t evaluacion) {
  const auto fila = LeerFinalYOrden(evaluacion);
  EvaluacionElegida elegida;
  elegida.Final = fila.Fields("Final").Flag();
  elegida.SegundaFinal = elegida.Final && fila.Fields("Orden").Long() == kOrdenSegundaFinal;
  if (elegida.SegundaFinal)
    elegida.PrimeraFinal = Leer("SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Final=" +
                                cConfiguracion::Instancia().Verdadero() + " AND Orden=1")
                               .Fields("IDNUMEVALUACION")
                               .Long();
  return elegida;
}

void OcultarRecuperacion(CheckBox& chkRecuperacion) {
  chkRecuperacion.Value(0);
  chkRecuperacion.Visible(false);
}

bool AdmiteRecuperacion(CheckBox& chkRecuperacion, bool blnFinal, bool blnPosibleRecuperacion,
                        std::int32_t seccion) {
  if (!blnFinal && blnPosibleRecuperacion) {
    const auto fila =
        Leer("SELECT Seguimiento FROM Seccion WHERE IDSeccion=" + std::to_string(seccion));
    if (!fila.Eof() && fila.Fields("Seguimiento").Flag()) {
      chkRecuperacion.Value(0);
      return true;
    }
  }
  OcultarRecuperacion(chkRecuperacion);
  return false;
}

bool EsTutor(std::int32_t seccion) {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto fila = Leer("SELECT IDPersonal FROM Personal WHERE CodUsuario=" +
                         std::to_string(configuracion.intIDUsuario) +
                         " AND IDPersonal IN (SELECT CodTutor FROM Seccion WHERE IDSeccion=" +
                         std::to_string(seccion) + ")");
  return !fila.Eof() || configuracion.intIDPerfil <= 0;
}

}  // namespace quorvane
