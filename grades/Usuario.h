#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// The `IDPersonal` of the session's user, 0 when he is no member of staff. `columna` is the name
/// of the condition's column as the caller spells it.
std::int32_t PersonalDelUsuario(const std::string& columna);

}  // namespace quorvane
