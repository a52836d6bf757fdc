#include "adapters/guion/host/ScriptedCentroApi.h"

#include "adapters/guion/host/Host.h"
#include "adapters/guion/player/EventPrinter.h"

namespace quorvane::guion {

void ScriptedCentroApi::Called(const char* member) {
  events_.Print("host", std::string(kProgId) + "." + member);
}

void ScriptedCentroApi::marcar_Obligatorios(Form& /*form*/) { Called("marcar_Obligatorios"); }

void ScriptedCentroApi::acortartextolabel(Label& /*label*/) { Called("acortartextolabel"); }

std::string ScriptedCentroApi::ObtenerHoraSistema(std::string& /*dataSource*/) {
  Called("ObtenerHoraSistema");
  const auto& options = host_.Options();
  return options.hoyDelServidor ? options.hoyDelServidor() : options.hoy;
}

void ScriptedCentroApi::DesbloquearNotas(Connection& /*conexion*/, std::int16_t /*idUsuario*/,
                                         std::int32_t& /*idPersonal*/, std::int16_t& /*idSeccion*/,
                                         std::int16_t& /*idEvaluacion*/) {
  Called("DesbloquearNotas");
}

bool ScriptedCentroApi::notasactivas(Connection& /*conexion*/, const std::string& /*texto*/,
                                     std::int16_t /*idUsuario*/, std::int32_t& /*idPersonal*/,
                                     std::int16_t& /*idSeccion*/, std::int16_t& /*idEvaluacion*/) {
  Called("notasactivas");
  return host_.notasActivas;
}

}  // namespace quorvane::guion
