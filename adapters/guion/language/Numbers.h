#pragma once

#include <charconv>
#include <cstdint>
#include <string_view>
#include <system_error>

namespace quorvane::guion {

/// The whole of the text as an integer of 32 bits. False when it is none; then `number` is
/// untouched.
inline bool ParseInteger(std::string_view text, std::int32_t& number) {
  const auto* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  return read.ec == std::errc() && read.ptr == end;
}

}  // namespace quorvane::guion
