#include "adapters/odbc/WideText.h"

#include <cstddef>

#include "platform/text/Utf8.h"

namespace quorvane::odbc {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kBeyondPlane = 0x10000;
constexpr char32_t kHighSurrogates = 0xD800;
constexpr char32_t kLowSurrogates = 0xDC00;
constexpr char32_t kPastSurrogates = 0xE000;
constexpr char32_t kPastUnicode = 0x110000;

bool IsHigh(char32_t unit) { return unit >= kHighSurrogates && unit < kLowSurrogates; }
bool IsLow(char32_t unit) { return unit >= kLowSurrogates && unit < kPastSurrogates; }

/// The bytes that follow a first byte of this kind; none for one that begins nothing.
int FollowersOf(unsigned char first) {
  if (first >= 0xF0) return first < 0xF5 ? 3 : 0;
  if (first >= 0xE0) return 2;
  return first >= 0xC2 ? 1 : 0;
}

/// The letter that begins at `at`, which moves behind it.
char32_t NextLetter(std::string_view text, std::size_t& at) {
  constexpr char32_t kLeast[] = {0, 0x80, 0x800, kBeyondPlane};
  const auto first = static_cast<unsigned char>(text[at++]);
  if (first < 0x80) return first;
  const auto followers = FollowersOf(first);
  if (followers == 0) return kReplacement;
  auto letter = static_cast<char32_t>(first & (0x3F >> followers));
  for (auto i = 0; i < followers; ++i, ++at) {
    const auto next = at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
    if ((next & 0xC0U) != 0x80U) return kReplacement;
    letter = letter << 6U | (next & 0x3FU);
  }
  const auto valid =
      letter >= kLeast[followers] && letter < kPastUnicode && !IsHigh(letter) && !IsLow(letter);
  return valid ? letter : kReplacement;
}

}  // namespace

std::u16string ToWide(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto letter = NextLetter(text, at);
    if (letter < kBeyondPlane) {
      wide += static_cast<char16_t>(letter);
    } else {
      wide += static_cast<char16_t>(kHighSurrogates + ((letter - kBeyondPlane) >> 10U));
      wide += static_cast<char16_t>(kLowSurrogates + ((letter - kBeyondPlane) & 0x3FFU));
    }
  }
  return wide;
}

std::string FromWide(std::u16string_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    auto letter = static_cast<char32_t>(text[at]);
    if (IsHigh(letter) && at + 1 < text.size() && IsLow(text[at + 1])) {
      letter = kBeyondPlane + ((letter - kHighSurrogates) << 10U) + (text[at + 1] - kLowSurrogates);
      ++at;
    } else if (IsHigh(letter) || IsLow(letter)) {
      letter = kReplacement;
    }
    narrow += Utf8Encode(letter);
  }
  return narrow;
}

}  // namespace quorvane::odbc
