#pragma once

#include <cstdint>

#include "frame/cConfiguracion.h"

namespace quorvane {

/// The number that a condition compares a flag column with True by.
inline std::int16_t NumeroVerdadero() {
  return cConfiguracion::Instancia().SQLServer ? std::int16_t{1} : std::int16_t{-1};
}

}  // namespace quorvane
