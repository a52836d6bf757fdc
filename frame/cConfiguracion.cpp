#include "frame/cConfiguracion.h"

namespace quorvane {

cConfiguracion& cConfiguracion::Instancia() {
  static cConfiguracion instancia;
  return instancia;
}

std::string cConfiguracion::CarpetaIconos() const {
  return RutaIcono.substr(0, RutaIcono.rfind('\\') + 1);
}

}  // namespace quorvane
