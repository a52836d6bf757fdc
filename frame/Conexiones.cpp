#include "frame/Conexiones.h"

#include "frame/cConfiguracion.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

Connection& Checked(Connection* conexion) {
  if (conexion == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
  return *conexion;
}

}  // namespace

Connection& Centro() { return Checked(cConfiguracion::Instancia().conLocalCentro); }

Connection& AppEntrada() { return Checked(cConfiguracion::Instancia().conLocalAppEntrada); }

}  // namespace quorvane
