#include "adapters/guion/host/ScriptedPersonSearch.h"

#include <utility>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/player/EventPrinter.h"

namespace quorvane::guion {

void ScriptedPersonSearch::Called(const char* member) {
  events_.Print("host", std::string(kProgId) + "." + member);
}

void ScriptedPersonSearch::pasarconexiones(Connection* /*centro*/, Connection* /*borrado*/,
                                           Connection* /*otroCentro*/,
                                           Connection* /*otroBorrado*/) {
  Called("pasarconexiones");
}

void ScriptedPersonSearch::ObtenerDatos(bool /*activa*/, const std::string& /*rutaIcono*/) {
  Called("ObtenerDatos");
}

std::int32_t ScriptedPersonSearch::Buscar(const std::string& /*clase*/) {
  Called("Buscar");
  return std::exchange(host_.docente, 0);
}

}  // namespace quorvane::guion
