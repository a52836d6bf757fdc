#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>
#include <system_error>

namespace quorvane {

/// The whole of a text as a plain decimal number: digits, behind a minus where `T` has a sign. None
/// for anything else, as blanks, a plus, another base, a number too large for `T`, or a leading
/// zero: some read "010" as eight, and what a number decides may be what is deleted.
template <std::integral T>
std::optional<T> PlainNumber(std::string_view text) {
  const auto digits = text.substr(text.starts_with('-') ? 1 : 0);
  if (digits.starts_with('0') && text.size() > 1) return std::nullopt;
  T number{};
  const auto* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return number;
}

}  // namespace quorvane
