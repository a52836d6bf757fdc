#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quorvane {

class SessionObject;

/// The module's entry: the host hands it the session, then opens screens as the user asks for
/// them. It holds nothing itself, so it may be created anew for each call.
class cAsignarDatos {
 public:
  /// Reads the session's members, in a fixed order, into `cConfiguracion`. Error 438 for a member
  /// that the object lacks, 13 for a connection that is none; what was read before stays.
  /// The connections must live as long as the module is used; the object is kept.
  void ObtenerDatos(const std::shared_ptr<const SessionObject>& objDatosSesion);

  /// Opens the first screen of that node and returns when it has gone. A node without a screen
  /// does nothing. A failure of the module's comes out here: then the host drops the forms with
  /// `FormInstances::DropAll`. `strTipoEnsenanza` isn't read.
  void ActivarFormulario(std::uint8_t bytNodoSeleccionado,
                         const std::optional<std::string>& strTipoEnsenanza = std::nullopt);

  /// False for every node: the module deletes nothing on the host's request.
  bool Eliminar(std::uint8_t bytNodoSeleccionado);
};

}  // namespace quorvane
