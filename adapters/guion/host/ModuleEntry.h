#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/host/SessionObject.h"

namespace quorvane::guion {

/// The module's entry as the host calls it. What they throw comes out to the host.
struct ModuleEntry {
  std::function<void(const std::shared_ptr<const SessionObject>&)> ObtenerDatos;
  std::function<void(std::uint8_t nodo)> ActivarFormulario;
};

}  // namespace quorvane::guion
