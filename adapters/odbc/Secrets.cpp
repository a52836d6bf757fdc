#include "adapters/odbc/Secrets.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <span>

#include "platform/text/AsciiCase.h"

namespace quorvane::odbc {
namespace {

constexpr std::string_view kParts[] = {"pwd", "pass", "secret", "token"};
constexpr std::string_view kMask = "***";

constexpr std::string_view kEndings[] = {"pwd", "pass", "password", "secret", "secreto", "token"};
/// Before a colon, behind which engines tell of a token that they don't understand.
constexpr std::string_view kColonEndings[] = {"pwd", "pass", "password", "secret", "secreto"};

/// How a keyword that was written with other signs in it ends: the letters and digits before the
/// sign, as many as the longest of those words has.
bool EndsAsSecret(std::string_view text, std::span<const std::string_view> endings) {
  constexpr std::size_t kLongest = 8;
  std::string tail;
  for (auto at = text.size(); at > 0 && tail.size() < kLongest; --at)
    if (std::isalnum(static_cast<unsigned char>(text[at - 1])) != 0)
      tail.insert(0, 1, text[at - 1]);
  const auto name = AsciiLower(tail);
  return std::any_of(endings.begin(), endings.end(),
                     [&name](std::string_view ending) { return name.ends_with(ending); });
}

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

/// Behind the closing brace of a value in braces, in which a doubled one is a letter, or the text's
/// end where none closes it; else the semicolon, or the text's end: a password may hold anything
/// else, a blank too. What follows that semicolon is still the value's where it gives none itself.
std::size_t EndOfValue(std::string_view text, std::size_t at) {
  const auto begin = std::min(text.find_first_not_of(" \t", at), text.size());
  if (begin < text.size() && text[begin] == '{') {
    for (auto end = begin + 1; end < text.size(); ++end) {
      if (text[end] != '}') continue;
      if (end + 1 == text.size() || text[end + 1] != '}') return end + 1;
      ++end;
    }
    return text.size();
  }
  auto end = text.find(';', begin);
  while (end != std::string_view::npos) {
    const auto next = text.find_first_of(";=", end + 1);
    if (next != std::string_view::npos && text[next] == '=') return end;
    end = next;
  }
  return text.size();
}

/// The brace that closes the value in which `at` stands, as in "{file:k,password:a}"; else the end
/// of a value that begins there.
std::size_t EndOfNestedValue(std::string_view text, std::size_t at) {
  const auto before = text.substr(0, at);
  const auto opened = before.rfind('{');
  const auto closed = before.rfind('}');
  if (opened == std::string_view::npos || (closed != std::string_view::npos && closed > opened))
    return EndOfValue(text, at);
  for (auto end = text.find('}', at); end != std::string_view::npos; end = text.find('}', end + 2))
    if (end + 1 == text.size() || text[end + 1] != '}') return end;
  return text.size();
}

std::string WithoutValues(std::string_view text) {
  std::string shown;
  std::size_t copied = 0;
  for (auto sign = text.find_first_of("=:"); sign != std::string_view::npos;
       sign = text.find_first_of("=:", std::max(sign + 1, copied))) {
    const auto before = text.substr(0, sign);
    const auto colon = text[sign] == ':';
    const auto secret = colon
                            ? EndsAsSecret(before, kColonEndings)
                            : IsSecret(KeywordBefore(text, sign)) || EndsAsSecret(before, kEndings);
    if (!secret) continue;
    shown += text.substr(copied, sign + 1 - copied);
    shown += kMask;
    copied = colon ? EndOfNestedValue(text, sign + 1) : EndOfValue(text, sign + 1);
  }
  return shown.append(text.substr(copied));
}

/// Of "//user:password@server" the user and the server.
std::string WithoutAddressPasswords(std::string text) {
  for (auto at = text.find("//"); at != std::string::npos; at = text.find("//", at + 2)) {
    // A password may hold a slash that should have been written otherwise.
    const auto end = text.find_first_of(" \t\n", at + 2);
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
  auto name = AsciiLower(keyword);
  // A slip of the hand, as in «PW"D», makes it no less of one.
  std::erase_if(name, [](unsigned char letter) { return std::isalnum(letter) == 0; });
  return std::any_of(std::begin(kParts), std::end(kParts), [&name](std::string_view part) {
    return name.find(part) != std::string::npos;
  });
}

std::string WithoutSecrets(std::string_view text) {
  return WithoutAddressPasswords(WithoutValues(text));
}

}  // namespace quorvane::odbc
