#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvane {

class Connection;
class SessionObject;

/// The session, as every form reads it: one instance, created at its first use, that lives as long
/// as the module. Filled by `cAsignarDatos`, which never resets what it doesn't fill. The
/// connections are the host's, and null before the first fill.
class cConfiguracion {
 public:
  static cConfiguracion& Instancia();

  bool SQLServer = false;        ///< which of the two engines: True is written 1 on it, -1 else
  std::int16_t intIDPerfil = 0;  ///< 0 is the unrestricted profile
  std::int16_t intIDUsuario = 0;
  std::string strNombreUsuario;
  std::int16_t intIdCentro = 0;
  std::string strNombreCentro;
  std::int16_t intIDCursoEscolar = 0;
  std::int16_t intCodCurso = 0;       ///< never filled
  std::int16_t intTipoEnsenanza = 0;  ///< never filled
  Connection* conLocalBorradoCentro = nullptr;
  Connection* conLocalCentro = nullptr;
  Connection* conLocalAppEntrada = nullptr;
  std::int32_t lngRowData = 0;
  std::uint8_t bytAccion = 0;
  bool blnPesetas = false;
  bool Activa = false;  ///< False for a school year that can be looked at and not changed
  std::string RutaIcono;
  std::shared_ptr<const SessionObject> datossesion;
  std::string RutaBD;
  std::string RutaAplicacion;

  /// The number that a condition compares a flag column with True by.
  [[nodiscard]] std::int16_t NumeroVerdadero() const {
    return SQLServer ? std::int16_t{1} : std::int16_t{-1};
  }
  [[nodiscard]] std::string Verdadero() const { return std::to_string(NumeroVerdadero()); }
  /// The folder of the icons: `RutaIcono` up to and including its last backslash.
  [[nodiscard]] std::string CarpetaIconos() const;
};

}  // namespace quorvane
