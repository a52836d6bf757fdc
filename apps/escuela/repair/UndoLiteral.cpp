#include "apps/escuela/repair/UndoLiteral.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "apps/escuela/QuotedText.h"
#include "platform/text/Utf8.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

using sqltext::Engine;

std::string Hexadecimal(std::string_view bytes) {
  constexpr auto kDigits = "0123456789ABCDEF";
  std::string text = "X'";
  for (const auto letter : bytes) {
    const auto byte = static_cast<unsigned char>(letter);
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 15U];
  }
  return text + "'";
}

std::string Called(char32_t letter, Engine engine) {
  const auto number = static_cast<std::uint32_t>(letter);
  if (engine == Engine::Sqlite) return "char(" + std::to_string(number) + ")";
  if (engine == Engine::PostgreSql) return "chr(" + std::to_string(number) + ")";
  if (number < 0x10000U) return "NCHAR(" + std::to_string(number) + ")";
  // It counts in halves of those beyond the first plane.
  const auto rest = number - 0x10000U;
  return "NCHAR(" + std::to_string(0xD800U + (rest >> 10U)) + ")+NCHAR(" +
         std::to_string(0xDC00U + (rest & 0x3FFU)) + ")";
}

std::string TextLiteral(const std::string& text, Engine engine) {
  // What isn't text of the file's can only be given by its bytes.
  if (engine == Engine::Sqlite && (!IsUtf8(text) || text.find('\0') != std::string::npos))
    return "CAST(" + Hexadecimal(text) + " AS TEXT)";
  const auto* const join = engine == Engine::SqlServer ? "+" : "||";
  std::string literal;
  std::string plain;
  const auto append = [&](const std::string& piece) {
    literal += (literal.empty() ? "" : join) + piece;
  };
  const auto appendPlain = [&] {
    std::string quoted;
    AppendQuoted(quoted, plain, engine);
    append(quoted);
    plain.clear();
  };
  for (const auto letter : Utf8Decode(text)) {
    if (!ActsOnTerminal(letter)) {
      plain += Utf8Encode(letter);
      continue;
    }
    if (!plain.empty() || literal.empty()) appendPlain();
    append(Called(letter, engine));
  }
  if (!plain.empty() || literal.empty()) appendPlain();
  return literal;
}

std::string NumberLiteral(const Value& value) {
  auto text = value.Text();
  std::int64_t whole = 0;
  const auto* const end = text.data() + text.size();
  if (const auto read = std::from_chars(text.data(), end, whole);
      read.ec == std::errc() && read.ptr == end)
    return text;
  const auto number = value.Number();
  if (!std::isfinite(number)) return number < 0 ? "-9e999" : "9e999";
  char exact[40];
  std::snprintf(exact, sizeof exact, "%.17g", number);
  return exact;
}

}  // namespace

std::string UndoLiteral(const Value& value, Engine engine, bool bytes) {
  if (value.IsNull()) return "NULL";
  if (!value.IsText()) return NumberLiteral(value);
  return bytes ? Hexadecimal(value.Text()) : TextLiteral(value.Text(), engine);
}

std::string BytesMarks(const FieldNames& columns, Engine engine) {
  if (engine != Engine::Sqlite || columns.empty()) return {};
  std::string marks;
  for (const auto& column : columns)
    marks += (marks.empty() ? ", " : "||") + ("substr(typeof(" + UndoName(column) + "),1,1)");
  return marks + " AS " + kBytesMarks;
}

std::string UndoName(const std::string& name) {
  if (std::all_of(name.begin(), name.end(), [](char letter) {
        return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
      }))
    return name;
  std::string quoted = "\"";
  for (const auto letter : name) {
    quoted += letter;
    if (letter == '"') quoted += letter;
  }
  return quoted + '"';
}

}  // namespace quorvane
