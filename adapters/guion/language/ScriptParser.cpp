#include "adapters/guion/language/ScriptParser.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/guion/language/CommandKind.h"
#include "adapters/guion/language/LineReader.h"
#include "adapters/guion/language/ScriptError.h"
#include "adapters/guion/language/SessionSetting.h"
#include "platform/text/PlainNumber.h"
#include "platform/text/Utf8.h"

namespace quorvane::guion {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsEntry(const Word& word) {
  if (word.quoted || (word.text.front() != '#' && word.text.front() != '=')) return true;
  return PlainNumber<std::int32_t>(std::string_view(word.text).substr(1)).has_value();
}

bool Fits(Argument argument, const Word& word) {
  const auto number = PlainNumber<std::int32_t>(word.text);
  switch (argument) {
    case Argument::Name:
      return !word.quoted;
    case Argument::Entry:
      return IsEntry(word);
    case Argument::Number:
      return number.has_value();
    case Argument::Positive:
      return number && *number > 0;
    case Argument::Flag:
      return word.text == "0" || word.text == "1";
    case Argument::Text:
      return true;
    case Argument::Setting:
      return ParseSetting(word.text).has_value();
  }
  return false;
}

Argument Place(const CommandKind& kind, std::size_t index) {
  return kind.arguments[std::min(index, kind.arguments.size() - 1)];
}

bool HasPlace(const CommandKind& kind, std::size_t index) {
  if (index < kind.arguments.size()) return true;
  return !kind.arguments.empty() && kind.arguments.back() == Argument::Setting;
}

void ReadArguments(LineReader& reader, Command& command) {
  const auto& kind = *command.kind;
  for (;;) {
    const auto index = command.arguments.size();
    const auto place = HasPlace(kind, index);
    auto word = reader.Next(place && Place(kind, index) == Argument::Entry);
    if (!word) break;
    if (!place) throw ScriptError(command.line, "sobran argumentos: " + word->text);
    if (!Fits(Place(kind, index), *word))
      throw ScriptError(command.line, "argumento no válido: " + word->text);
    command.arguments.push_back(std::move(*word));
  }
  if (command.arguments.size() < kind.required)
    throw ScriptError(command.line, "faltan argumentos: " + std::string(kind.name));
}

}  // namespace

std::vector<Command> ParseScript(std::istream& script) {
  std::vector<Command> commands;
  std::size_t line = 0;
  while (auto command = ReadCommand(script, line)) commands.push_back(std::move(*command));
  return commands;
}

std::optional<Command> ReadCommand(std::istream& script, std::size_t& line) {
  for (std::string text; std::getline(script, text);) {
    ++line;
    if (line == 1 && text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    if (!IsUtf8(text)) throw ScriptError(line, "el texto no es UTF-8");
    LineReader reader(text, line);
    const auto name = reader.Next(false);
    if (!name) continue;
    Command command;
    command.line = line;
    command.kind = name->quoted ? nullptr : FindCommand(name->text);
    if (command.kind == nullptr) throw ScriptError(line, "orden desconocida: " + name->text);
    ReadArguments(reader, command);
    command.text = reader.TextRead();
    return command;
  }
  // A script that breaks off is no shorter script: neither the disk's failure nor the lack of
  // memory for a line may pass for its end.
  if (script.bad()) throw ScriptError(line + 1, "no se puede leer");
  return std::nullopt;
}

}  // namespace quorvane::guion
