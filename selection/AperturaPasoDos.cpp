#include "selection/AperturaPasoDos.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/ComboBox.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {

std::string TituloPasoDos(const ComboBox& tipo, const ComboBox& curso, const ComboBox& seccion) {
  return tipo.Text() + " " + curso.Text() + " " + seccion.Text();
}

void MarcarSegundaFinal(PasoDosFinal& pasoDos) {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto primera = Centro().Execute("SELECT IdNumEvaluacion FROM NumEvaluacion WHERE Final=" +
                                        configuracion.Verdadero() + " AND Orden=1");
  pasoDos.mlngIdEvaluacionJunio(primera.Fields("IDNUMEVALUACION").Long());
  pasoDos.mblnFinalSeptiembre(true);
}

void MostrarPasoDos(PasoDos& pasoDos) {
  Application::Instance().Screen().MousePointer(Pointer::Default);
  AppEntrada().Close();
  pasoDos.Mostrar();
}

}  // namespace quorvane
