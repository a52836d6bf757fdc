#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Collection.h"
#include "register/cMateria.h"

namespace quorvane {

/// A student with his pending subjects.
class cAlumno {
 public:
  std::int32_t IDAlumno = 0;
  Collection<cMateria> colMateria;  ///< keyed by the text of `IDMatDetalle`
  std::string Nombre;               ///< surnames, comma, first name; empty in the grade forms
  std::uint8_t REACDIV = 0;
  std::uint8_t Diversificacion = 0;
  std::uint8_t Estado = 0;
  std::uint8_t EstadoAnterior = 0;
};

}  // namespace quorvane
