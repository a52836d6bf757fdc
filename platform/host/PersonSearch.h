#pragma once

#include <cstdint>
#include <string>

#include "platform/host/HostObject.h"

namespace quorvane {

class Connection;

/// The host's person search, `ZendriaBuscar.CAsignardatos`. The defaults find nobody.
class PersonSearch : public HostObject {
 public:
  static constexpr const char* kProgId = "ZendriaBuscar.CAsignardatos";

  /// The connections to search on; they stay the host's and outlive the component.
  virtual void pasarconexiones(Connection* /*centro*/, Connection* /*borrado*/,
                               Connection* /*otroCentro*/, Connection* /*otroBorrado*/) {}

  virtual void ObtenerDatos(bool /*activa*/, const std::string& /*rutaIcono*/) {}

  /// Lets the user choose a person of that kind: his `IDPersonal`, 0 or less for nobody.
  virtual std::int32_t Buscar(const std::string& /*clase*/) { return 0; }
};

}  // namespace quorvane
