#pragma once

#include <cstdint>

namespace quorvane {

/// The row states of the register's objects. A form that needs them keeps an instance of its own.
class cConstCol {
 public:
  const std::uint8_t NoModificado = 0;  ///< as it was read from the database
  const std::uint8_t NUEVO = 1;         ///< without a row in the database yet
  const std::uint8_t Modificado = 2;    ///< with a row, and something of it changed
  const std::uint8_t Eliminado = 3;     ///< with a row, which is to be deleted
};

}  // namespace quorvane
