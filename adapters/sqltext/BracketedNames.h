#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The module puts some names in brackets, which not every engine reads: writes [Nombre] as the
/// standard's "nombre", in the small letters that such an engine keeps a name without quotes in.
std::string QuoteBracketedNames(std::string_view statement);

}  // namespace quorvane::sqltext
