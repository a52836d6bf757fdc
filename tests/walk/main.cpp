#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>

#include "tests/walk/History.h"
#include "tests/walk/Walk.h"
#include "tests/walk/WalkOptions.h"

// The sanitizers' runtime, where there is one: what is called before it ends the program.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace quorvane::test {
namespace {

constexpr const char* kUsage = R"(Uso: walk [--gestos N] [--semilla S]

Abre las pantallas del módulo al azar, sobre escuelas al azar, y comprueba tras
cada formulario cerrado que no quedan publicaciones ni bloqueos suyos, que no se
ha perdido ni duplicado ninguna evaluación, y que tras un error vuelven a
abrirse todas las pantallas.

  --gestos N    cuántos gestos (100000)
  --semilla S   con qué números al azar (1)
)";

History& TheHistory() {
  static History history;
  return history;
}

std::uint64_t seedNow = 0;

/// How to come back to where it went wrong, and what was done last.
void TellWhere() {
  std::cerr << "walk: --semilla " << seedNow << "; lo último:\n";
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
std::optional<WalkOptions> ParseOptions(int argc, char** argv) {
  WalkOptions options;
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

int Main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--help") {
    std::cout << kUsage;
    return 0;
  }
  const auto options = ParseOptions(argc, argv);
  if (!options) {
    std::cerr << kUsage;
    return 2;
  }
  seedNow = options->seed;
  if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(TellWhere);
  Walk walk(*options, TheHistory());
  try {
    walk.Run();
  } catch (const std::exception& failure) {
    std::cerr << "walk: en el gesto " << walk.Gestures() << ": " << failure.what() << '\n';
    TellWhere();
    return 1;
  }
  walk.Report(std::cout);
  return 0;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) { return quorvane::test::Main(argc, argv); }
