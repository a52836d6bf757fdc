#include "tests/walk/WalkMain.h"

#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>

// The sanitizers' runtime, where there is one: what is called before it ends the program.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace quorvane::test {
namespace {

History& TheHistory() {
  static History history;
  return history;
}

const char* nameNow = "";
std::uint64_t seedNow = 0;

/// How to come back to where it went wrong, and what was done last.
void TellWhere() {
  std::cerr << nameNow << ": --semilla " << seedNow << "; lo último:\n";
  TheHistory().Print(std::cerr);
  std::cerr.flush();
}

std::optional<std::uint64_t> ParseNumber(std::string_view text) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

/// Nothing for arguments that can't be read.
std::optional<WalkOptions> ParseOptions(WalkOptions options, int argc, char** argv) {
  for (int i = 1; i < argc; i += 2) {
    const std::string_view name = argv[i];
    const auto number = i + 1 < argc ? ParseNumber(argv[i + 1]) : std::nullopt;
    if (!number) return std::nullopt;
    if (name == "--gestos")
      options.gestures = *number;
    else if (name == "--semilla")
      options.seed = *number;
    else
      return std::nullopt;
  }
  return options;
}

}  // namespace

int WalkMain(const WalkProgram& program, int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--help") {
    std::cout << program.usage;
    return 0;
  }
  const auto options = ParseOptions(program.defaults, argc, argv);
  if (!options) {
    std::cerr << program.usage;
    return 2;
  }
  nameNow = program.name;
  seedNow = options->seed;
  if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(TellWhere);
  try {
    program.run(*options, TheHistory());
  } catch (const std::exception& failure) {
    std::cerr << program.name << ": " << failure.what() << '\n';
    TellWhere();
    return 1;
  }
  return 0;
}

}  // namespace quorvane::test
