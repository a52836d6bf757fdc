#include "adapters/guion/language/ScriptParser.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "adapters/guion/language/CommandKind.h"
#include "adapters/guion/language/LineReader.h"
#include "adapters/guion/language/Numbers.h"
#include "adapters/guion/language/ScriptError.h"
#include "adapters/guion/language/SessionSetting.h"
#include "platform/text/Utf8.h"

namespace quorvane::guion {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsUtf8(const std::string& text) {
  std::string again;
  again.reserve(text.size());
  for (const auto character : Utf8Decode(text)) again += Utf8Encode(character);
  return again == text;
}

bool IsEntry(const Word& word) {
  std::int32_t number = 0;
  if (word.quoted || (word.text.front() != '#' && word.text.front() != '=')) return true;
  return ParseInteger(std::string_view(word.text).substr(1), number);
}

bool Fits(Argument argument, const Word& word) {
  std::int32_t number = 0;
  switch (argument) {
    case Argument::Name:
      return !word.quoted;
    case Argument::Entry:
      return IsEntry(word);
    case Argument::Number:
      return ParseInteger(word.text, number);
    case Argument::Positive:
      return ParseInteger(word.text, number) && number > 0;
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
  return std::nullopt;
}

}  // namespace quorvane::guion
