#include <iostream>

#include "tests/ventana/KeyRuns.h"
#include "tests/ventana/WindowMain.h"

namespace quorvane::test {
namespace {

const WalkOptions kDefaults{.gestures = 10'000, .seed = 1, .odbc = {}, .owner = {}};

constexpr const char* kUsage = R"(Uso: teclas [--gestos N] [--semilla S]

Teclea al azar en los formularios de notas, las mismas teclas una a una, todas
seguidas, y todas seguidas con la máquina ocupada. Comprueba que acaban igual:
las mismas sentencias y las mismas notas en las celdas.

  --gestos N    cuántas teclas, entre los ocho formularios (10000)
  --semilla S   con qué números al azar (1)
)";

void Run(const WalkOptions& options, History& /*history*/) { KeyRuns(options).Run(std::cout); }

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  return WindowMain({"teclas", kUsage, kDefaults, Run}, argc, argv);
}
