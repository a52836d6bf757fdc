#include "selection/AperturaPasoDos.h"

#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/EvaluacionElegida.h"

namespace quorvane {

void MarcarSegundaFinal(Connection& centro, PasoDosFinal& pasoDos) {
  pasoDos.mlngIdEvaluacionJunio(LeerPrimeraFinal(centro));
  pasoDos.mblnFinalSeptiembre(true);
}

void MostrarPasoDos(Connection& entrada, PasoDos& pasoDos) {
  Application::Instance().Screen().MousePointer(Pointer::Default);
  entrada.Close();
  pasoDos.Mostrar();
}

}  // namespace quorvane
