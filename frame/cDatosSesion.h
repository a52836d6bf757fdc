#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// A public record that a host may keep its session in. The module neither makes nor reads one:
/// it holds fewer members than `cAsignarDatos` asks of a session object.
class cDatosSesion {
 public:
  std::int16_t IDPerfil = 0;
  std::int16_t IDCentro = 0;
  std::string NombreCentro;
  std::int16_t IDUsuario = 0;
  std::string NombreUsuario;
  std::int16_t IDCursoEscolar = 0;
  std::string ValorCursoEscolar;
  bool Activa = false;
  bool Pesetas = false;
  std::string CadenaUdlActiva;
  std::string RutaAplicacion;
  bool SQLServer = false;
};

}  // namespace quorvane
