#include "adapters/odbc/Secrets.h"

#include <algorithm>
#include <cstddef>

#include "platform/text/AsciiCase.h"

namespace quorvane::odbc {
namespace {

constexpr std::string_view kParts[] = {"pwd", "pass", "secret", "token"};
constexpr std::string_view kMask = "***";

bool IsKeywordPart(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9') || letter == '_' || letter == '-';
}

/// The word that ends before the equals sign at `equals`, blanks between them let by.
std::string_view KeywordBefore(std::string_view text, std::size_t equals) {
  auto end = equals;
  while (end > 0 && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
  auto begin = end;
  while (begin > 0 && IsKeywordPart(text[begin - 1])) --begin;
  return text.substr(begin, end - begin);
}

/// Behind the closing brace of a value in braces, in which a doubled one is a letter; else the
/// semicolon, or the text's end: a password may hold anything else, a blank too.
std::size_t EndOfValue(std::string_view text, std::size_t at) {
  const auto begin = std::min(text.find_first_not_of(" \t", at), text.size());
  if (begin < text.size() && text[begin] == '{')
    for (auto end = begin + 1; end < text.size(); ++end) {
      if (text[end] != '}') continue;
      if (end + 1 == text.size() || text[end + 1] != '}') return end + 1;
      ++end;
    }
  return std::min(text.find(';', begin), text.size());
}

std::string WithoutValues(std::string_view text) {
  std::string shown;
  std::size_t copied = 0;
  for (auto equals = text.find('='); equals != std::string_view::npos;
       equals = text.find('=', std::max(equals + 1, copied))) {
    if (!IsSecret(KeywordBefore(text, equals))) continue;
    shown += text.substr(copied, equals + 1 - copied);
    shown += kMask;
    copied = EndOfValue(text, equals + 1);
  }
  return shown.append(text.substr(copied));
}

/// Of "//user:password@server" the user and the server.
std::string WithoutAddressPasswords(std::string text) {
  for (auto at = text.find("//"); at != std::string::npos; at = text.find("//", at + 2)) {
    const auto end = text.find_first_of("/ \t\n", at + 2);
    const auto server = text.rfind('@', end);
    const auto colon = text.find(':', at);
    if (server == std::string::npos || colon == std::string::npos || server < at || colon > server)
      continue;
    text.replace(colon + 1, server - colon - 1, kMask);
  }
  return text;
}

}  // namespace

bool IsSecret(std::string_view keyword) {
  const auto name = AsciiLower(keyword);
  return std::any_of(std::begin(kParts), std::end(kParts), [&name](std::string_view part) {
    return name.find(part) != std::string::npos;
  });
}

std::string WithoutSecrets(std::string_view text) {
  return WithoutAddressPasswords(WithoutValues(text));
}

}  // namespace quorvane::odbc
