#include "register/Centro.h"

#include "frame/cConfiguracion.h"
#include "platform/RuntimeError.h"

namespace quorvane {

Connection& Centro() {
  auto* const conexion = cConfiguracion::Instancia().conLocalCentro;
  if (conexion == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
  return *conexion;
}

}  // namespace quorvane
