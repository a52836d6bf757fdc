#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// The characters of a UTF-8 text; a byte that is none stands for itself. Never empty but for an
/// empty text.
std::u32string Utf8Decode(std::string_view text);

std::string Utf8Encode(char32_t character);

/// The character that begins at `at`, which moves behind it. Strictly: none, and one byte on, where
/// there is no UTF-8, as a longer form than needed, half a surrogate pair, or beyond U+10FFFF.
std::optional<char32_t> NextUtf8(std::string_view text, std::size_t& at);

/// Whether all of the text is UTF-8, as strictly.
bool IsUtf8(std::string_view text);

/// The number of characters, as the runtime's Len counts them.
std::size_t Utf8Length(std::string_view text);

}  // namespace quorvane
