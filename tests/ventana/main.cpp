#include <iostream>

#include "tests/ventana/WindowMain.h"
#include "tests/ventana/WindowWalk.h"

namespace quorvane::test {
namespace {

const WalkOptions kDefaults{.gestures = 20'000, .seed = 1, .odbc = {}, .owner = {}};

constexpr const char* kUsage = R"(Uso: ventana [--gestos N] [--semilla S]

Abre las pantallas del módulo en sus ventanas de verdad y actúa como un usuario
con prisa: teclas y ratón al azar, de una en una o muchas a la vez, también
mientras un formulario carga o graba. Comprueba tras cada grabación que la base
de datos tiene lo que se mostraba, y al cerrar que no quedan publicaciones ni
bloqueos.

  --gestos N    cuántos gestos (20000)
  --semilla S   con qué números al azar (1)
)";

void Run(const WalkOptions& options, History& history) {
  WindowWalk walk(options, history);
  walk.Run();
  walk.Report(std::cout);
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  return WindowMain({"ventana", kUsage, kDefaults, Run}, argc, argv);
}
