#include "adapters/sqltext/Tokens.h"

#include <algorithm>

#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

std::size_t EndOfDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && KindOf(text[at]) == CharKind::Digit) ++at;
  return at;
}

std::size_t Behind(std::string_view text, std::string_view end, std::size_t from) {
  const auto found = text.find(end, from);
  return found == std::string_view::npos ? text.size() : found + end.size();
}

}  // namespace

std::size_t EndOfQuoted(std::string_view text, std::size_t at) {
  const auto partner = text[at] == '[' ? ']' : text[at];
  for (++at; at < text.size(); ++at) {
    if (text[at] != partner) continue;
    const auto doubled = partner != ']' && at + 1 < text.size() && text[at + 1] == partner;
    if (!doubled) return at + 1;
    ++at;
  }
  return text.size();
}

std::size_t EndOfNumber(std::string_view text, std::size_t at) {
  at = EndOfDigits(text, at);
  if (at < text.size() && text[at] == '.') at = EndOfDigits(text, at + 1);
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    auto digits = at + 1;
    if (digits < text.size() && (text[digits] == '+' || text[digits] == '-')) ++digits;
    if (const auto end = EndOfDigits(text, digits); end != digits) at = end;
  }
  return EndOfWord(text, at);
}

bool Says(std::string_view text, std::string_view words) {
  return std::search(text.begin(), text.end(), words.begin(), words.end(),
                     [](char a, char b) { return AsciiLower(a) == AsciiLower(b); }) != text.end();
}

std::size_t EndOfToken(std::string_view text, std::size_t at) {
  switch (KindOf(text[at])) {
    case CharKind::Word:
      return EndOfWord(text, at);
    case CharKind::Digit:
      return EndOfNumber(text, at);
    case CharKind::Quote:
      return EndOfQuoted(text, at);
    default:
      return at + 1;
  }
}

std::size_t EndOfBlanks(std::string_view text, std::size_t at) {
  for (;;) {
    at = std::min(text.find_first_not_of(" \t\r\n\f", at), text.size());
    const auto begin = text.substr(at, 2);
    if (begin == "--")
      at = Behind(text, "\n", at);
    else if (begin == "/*")
      at = Behind(text, "*/", at + 2);
    else
      return at;
  }
}

}  // namespace quorvane::sqltext
