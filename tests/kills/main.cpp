#include <charconv>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>

#include "tests/kills/Kills.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage = R"(Uso: kills [OPCIONES]

Mata procesos con kill -9 en un punto al azar de una sesión al azar, y comprueba
cada vez la escuela, lo que había vuelto, los bloqueos y que los formularios se abren.

  --veces N      cuántos (200)
  --semilla S    con qué números al azar (1)
  --carpeta D    dónde poner la escuela (la de los ficheros temporales)
  --falta        los procesos dicen haber escrito lo que no; termina bien si se descubre
)";

template <typename Number>
bool Parse(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0;
}

std::optional<KillOptions> ParseOptions(int argc, char** argv) {
  KillOptions options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    if (name == "--falta") {
      options.fault = true;
      continue;
    }
    if (++i == argc) return std::nullopt;
    if (name == "--carpeta")
      options.folder = argv[i];
    else if (!(name == "--veces" && Parse(argv[i], options.times)) &&
             !(name == "--semilla" && Parse(argv[i], options.seed)))
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
  Kills kills(*options);
  try {
    kills.Run();
  } catch (const std::exception& failure) {
    std::cerr << "kills: " << failure.what() << '\n';
    const auto found =
        std::string_view(failure.what()).find(Kills::kLost) != std::string_view::npos;
    return options->fault && found ? 0 : 1;
  }
  kills.Print(std::cout);
  return options->fault ? 1 : 0;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  try {
    return quorvane::test::Main(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "kills: " << failure.what() << '\n';
    return 1;
  }
}
