#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// An evaluation in which a pending subject is to be graded.
class cEvaluacion {
 public:
  std::uint8_t IDEvaluacion = 0;  ///< `NumEvaluacion`.`IDNumEvaluacion`
  std::string Nombre;
  bool Final = false;           ///< which of the two tables holds its row
  bool Extraordinaria = false;  ///< False when read with the register
  std::uint8_t Orden = 0;       ///< 0 when read with the register
  std::uint8_t Estado = 0;
  std::uint8_t EstadoAnterior = 0;
};

}  // namespace quorvane
