#include "platform/text/Utf8.h"

namespace quorvane {
namespace {

/// Bytes that follow the lead byte; 0 also for a byte that leads nothing.
std::size_t FollowingBytes(unsigned char lead) {
  if (lead >= 0xF0 && lead < 0xF8) return 3;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  if (lead >= 0xC0 && lead < 0xE0) return 1;
  return 0;
}

}  // namespace

std::u32string Utf8Decode(std::string_view text) {
  std::u32string characters;
  characters.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto following = FollowingBytes(lead);
    char32_t character = following == 0 ? lead : lead & (0x3FU >> following);
    auto complete = at + following < text.size();
    for (std::size_t i = 1; complete && i <= following; ++i) {
      const auto byte = static_cast<unsigned char>(text[at + i]);
      complete = (byte & 0xC0U) == 0x80U;
      character = character << 6U | (byte & 0x3FU);
    }
    characters += complete ? character : lead;
    at += complete ? following + 1 : 1;
  }
  return characters;
}

std::string Utf8Encode(char32_t character) {
  const auto tail = [character](unsigned shift) {
    return static_cast<char>(0x80U | (character >> shift & 0x3FU));
  };
  if (character < 0x80) return {static_cast<char>(character)};
  if (character < 0x800) return {static_cast<char>(0xC0U | character >> 6U), tail(0)};
  if (character < 0x10000) return {static_cast<char>(0xE0U | character >> 12U), tail(6), tail(0)};
  return {static_cast<char>(0xF0U | character >> 18U), tail(12), tail(6), tail(0)};
}

std::optional<char32_t> NextUtf8(std::string_view text, std::size_t& at) {
  constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
  constexpr char32_t kLast = 0x10FFFF;
  const auto rest = text.substr(at++);
  const auto lead = static_cast<unsigned char>(rest.front());
  const auto following = FollowingBytes(lead);
  if (following == 0) return lead < 0x80 ? std::optional<char32_t>(lead) : std::nullopt;
  if (rest.size() <= following) return std::nullopt;
  char32_t character = lead & (0x3FU >> following);
  for (std::size_t i = 1; i <= following; ++i) {
    const auto byte = static_cast<unsigned char>(rest[i]);
    if ((byte & 0xC0U) != 0x80U) return std::nullopt;
    character = character << 6U | (byte & 0x3FU);
  }
  const auto surrogate = character >= 0xD800 && character < 0xE000;
  if (character < kLeast[following] || character > kLast || surrogate) return std::nullopt;
  at += following;
  return character;
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();)
    if (!NextUtf8(text, at)) return false;
  return true;
}

std::size_t Utf8Length(std::string_view text) { return Utf8Decode(text).size(); }

}  // namespace quorvane
