#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quorvane::sqltext {

/// What a character begins in the engine's SQL.
enum class CharKind : unsigned char {
  Word,  ///< letters, underscore, anything beyond ASCII
  Digit,
  Other,      ///< blanks, brackets of expressions, operators
  Quote,      ///< ' " ` and [, each up to its partner
  Dash,       ///< minus, or two of them a comment
  Slash,      ///< division, or with a star a comment
  Dot,        ///< a qualified name, or a fraction
  Parameter,  ///< ? : @ $ #
  Semicolon,
};

namespace detail {
constexpr std::array<CharKind, 256> MakeKinds() {
  std::array<CharKind, 256> kinds{};
  for (std::size_t c = 0; c < kinds.size(); ++c) {
    const auto letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80;
    kinds[c] = letter ? CharKind::Word : CharKind::Other;
    if (c >= '0' && c <= '9') kinds[c] = CharKind::Digit;
  }
  for (const auto c : std::string_view("'\"`["))
    kinds[static_cast<unsigned char>(c)] = CharKind::Quote;
  for (const auto c : std::string_view("?:@$#"))
    kinds[static_cast<unsigned char>(c)] = CharKind::Parameter;
  kinds['-'] = CharKind::Dash;
  kinds['/'] = CharKind::Slash;
  kinds['.'] = CharKind::Dot;
  kinds[';'] = CharKind::Semicolon;
  return kinds;
}
inline constexpr auto kKinds = MakeKinds();
}  // namespace detail

constexpr CharKind KindOf(char c) { return detail::kKinds[static_cast<unsigned char>(c)]; }

/// Whether a name or number goes on with this character.
constexpr bool IsWordPart(char c) { return KindOf(c) <= CharKind::Digit; }

/// Whether those words stand anywhere in a text, a literal too, in letters of either case: what a
/// rewriting needs to be worth a closer look.
bool Says(std::string_view text, std::string_view words);

/// Behind the word that begins at `at`. Most of a statement's text passes here.
constexpr std::size_t EndOfWord(std::string_view text, std::size_t at) {
  while (at < text.size() && IsWordPart(text[at])) ++at;
  return at;
}

/// Behind the quoted text that begins at `at`, doubled quotes inside it taken along; the end of the
/// text when the partner is missing.
std::size_t EndOfQuoted(std::string_view text, std::size_t at);

/// Behind the number that begins at `at` with a digit or a point: fraction, exponent and
/// hexadecimal digits taken along, and the letters that the engine refuses with it.
std::size_t EndOfNumber(std::string_view text, std::size_t at);

/// Behind the token that begins at `at`: a word, a number, a quoted text, or else one character.
std::size_t EndOfToken(std::string_view text, std::size_t at);

/// Behind the blanks and comments at `at`, if there are any. A comment that isn't closed goes up to
/// the end of the text.
std::size_t EndOfBlanks(std::string_view text, std::size_t at);

}  // namespace quorvane::sqltext
