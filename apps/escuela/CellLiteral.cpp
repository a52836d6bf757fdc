#include "apps/escuela/CellLiteral.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "apps/escuela/QuotedText.h"
#include "apps/escuela/Refusal.h"

namespace quorvane {
namespace {

using sqltext::Engine;

constexpr std::size_t kDateLetters = 10;
constexpr std::size_t kSqlServerText = 255;
constexpr double kExactWhole = 9007199254740992.0;

struct Range {
  std::int64_t least;
  std::int64_t most;
};

/// What a column of numbers holds.
Range RangeOf(SchemaKind kind, Engine engine) {
  if (engine == Engine::Sqlite) return {INT64_MIN, INT64_MAX};
  if (kind == SchemaKind::Key || kind == SchemaKind::Long) return {INT32_MIN, INT32_MAX};
  if (kind == SchemaKind::Byte && engine == Engine::SqlServer) return {0, UINT8_MAX};
  return {INT16_MIN, INT16_MAX};
}

/// How many letters a column of texts holds; 0 for any.
std::size_t LettersOf(SchemaKind kind, Engine engine) {
  if (engine == Engine::Sqlite) return 0;
  if (kind == SchemaKind::Date) return kDateLetters;
  return engine == Engine::SqlServer ? kSqlServerText : 0;
}

/// As the engine counts them: on SQL Server one beyond the first plane takes two places.
std::size_t CountLetters(std::string_view text, Engine engine) {
  std::size_t count = 0;
  for (const auto c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80U) ++count;
    if (byte >= 0xF0U && engine == Engine::SqlServer) ++count;
  }
  return count;
}

void AppendText(std::string& statement, const std::string& text, SchemaKind kind, Engine engine) {
  const auto most = LettersOf(kind, engine);
  const auto letters = CountLetters(text, engine);
  if (most > 0 && letters > most)
    Refuse("un texto de " + std::to_string(letters) + " letras, y en el destino caben " +
           std::to_string(most));
  if (text.find('\0') != std::string::npos) Refuse("un texto con el carácter de código 0");
  AppendQuoted(statement, text, engine);
}

void AppendReal(std::string& statement, double number, Engine engine) {
  if (engine != Engine::Sqlite) {
    char shown[32];
    std::snprintf(shown, sizeof shown, "%g", number);
    Refuse("el número " + std::string(shown) + ", que no es entero");
  }
  if (!std::isfinite(number)) {
    statement += number < 0 ? "-9e999" : "9e999";
    return;
  }
  char exact[40];
  std::snprintf(exact, sizeof exact, "%.17g", number);
  statement += exact;
}

bool ReadWhole(const Value& value, std::int64_t& whole) {
  const auto text = value.Text();
  const auto* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, whole);
  if (read.ec == std::errc() && read.ptr == end) return true;
  if (value.IsText()) return false;
  const auto number = value.Number();
  if (std::trunc(number) != number || std::fabs(number) > kExactWhole) return false;
  whole = static_cast<std::int64_t>(number);
  return true;
}

void AppendWhole(std::string& statement, std::int64_t whole, SchemaKind kind, Engine engine) {
  // A bit takes any number but 0 for its one.
  if (kind == SchemaKind::Flag && engine == Engine::SqlServer) {
    statement += whole == 0 ? '0' : '1';
    return;
  }
  const auto [least, most] = RangeOf(kind, engine);
  if (whole < least || whole > most)
    Refuse("el número " + std::to_string(whole) + ", y en el destino caben los que van de " +
           std::to_string(least) + " a " + std::to_string(most));
  statement += std::to_string(whole);
}

}  // namespace

void AppendLiteral(std::string& statement, const Value& value, SchemaKind kind, Engine engine) {
  const auto ofTexts = kind == SchemaKind::Text || kind == SchemaKind::Date;
  std::int64_t whole = 0;
  if (value.IsNull()) {
    if (kind == SchemaKind::Key) Refuse("el valor nulo, y es la clave");
    statement += "NULL";
  } else if (!ofTexts && ReadWhole(value, whole)) {
    AppendWhole(statement, whole, kind, engine);
  } else if (!ofTexts && !value.IsText()) {
    AppendReal(statement, value.Number(), engine);
  } else if (ofTexts || (engine == Engine::Sqlite && kind != SchemaKind::Key)) {
    // A file's column of numbers holds texts as well.
    AppendText(statement, value.Text(), kind, engine);
  } else {
    Refuse("«" + value.Text() + "», que no es un número");
  }
}

}  // namespace quorvane
