#include <exception>
#include <iostream>
#include <string_view>

#include "tests/kills/Kills.h"
#include "tests/support/ProgramOptions.h"

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

int Play(const KillOptions& options) {
  Kills kills(options);
  try {
    kills.Run();
  } catch (const std::exception& failure) {
    const auto found =
        std::string_view(failure.what()).find(Kills::kLost) != std::string_view::npos;
    if (!options.fault || !found) throw;
    std::cerr << "kills: " << failure.what() << '\n';
    return 0;
  }
  kills.Print(std::cout);
  return options.fault ? 1 : 0;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  KillOptions options;
  return ProgramOptions("kills", kUsage)
      .Positive("--veces", options.times)
      .Positive("--semilla", options.seed)
      .Text("--carpeta", options.folder)
      .Flag("--falta", options.fault)
      .Run(argc, argv, [&options] { return Play(options); });
}
