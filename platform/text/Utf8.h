#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane {

/// The characters of a UTF-8 text; a byte that is none stands for itself. Never empty but for an
/// empty text.
std::u32string Utf8Decode(std::string_view text);

std::string Utf8Encode(char32_t character);

/// The number of characters, as the runtime's Len counts them.
std::size_t Utf8Length(std::string_view text);

}  // namespace quorvane
