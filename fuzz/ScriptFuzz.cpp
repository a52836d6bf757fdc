#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "adapters/guion/language/CommandKind.h"
#include "adapters/guion/language/ScriptError.h"
#include "adapters/guion/language/ScriptParser.h"
#include "fuzz/Fail.h"

// A script is refused with the number of a line that it has, or its commands, written as they were
// read, are read again as the same.
namespace {

using quorvane::fuzz::Fail;
using namespace quorvane::guion;

bool Same(const Command& one, const Command& other) {
  return one.kind == other.kind && one.text == other.text &&
         std::equal(one.arguments.begin(), one.arguments.end(), other.arguments.begin(),
                    other.arguments.end(), [](const Word& left, const Word& right) {
                      return left.text == right.text && left.quoted == right.quoted;
                    });
}

void ReadAgain(const Command& command) {
  std::istringstream script(command.text + "\n");
  const auto again = ParseScript(script);
  if (again.size() != 1 || !Same(command, again.front())) Fail("read otherwise: " + command.text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::istringstream script(text);
  std::size_t lines = 0;
  try {
    while (const auto command = ReadCommand(script, lines)) {
      if (command->line != lines || command->kind == nullptr) Fail("no command: " + command->text);
      if (command->text.find('\n') != std::string::npos) Fail("two lines: " + command->text);
      if (command->arguments.size() < command->kind->required) Fail("too few: " + command->text);
      ReadAgain(*command);
    }
  } catch (const ScriptError&) {
    const auto ends = std::count(text.begin(), text.end(), '\n');
    if (lines == 0 || lines > static_cast<std::size_t>(ends) + 1) Fail("no such line: " + text);
  }
  return 0;
}
