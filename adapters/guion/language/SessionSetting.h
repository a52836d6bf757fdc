#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "adapters/guion/host/HostOptions.h"

namespace quorvane::guion {

/// A member of the session that a script changes, as `perfil=2`.
struct SessionSetting {
  std::int32_t HostOptions::*member = nullptr;
  std::int32_t value = 0;
};

/// None for an unknown key, a value that is no integer, or a flag other than 0 and 1.
std::optional<SessionSetting> ParseSetting(std::string_view text);

}  // namespace quorvane::guion
