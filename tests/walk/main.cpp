#include <iostream>

#include "tests/walk/ServerWalk.h"
#include "tests/walk/Walk.h"
#include "tests/walk/WalkMain.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage =
    R"(Uso: walk [--gestos N] [--semilla S] [--odbc CADENA --duena CADENA]

Abre las pantallas del módulo al azar, sobre escuelas al azar, y comprueba tras
cada formulario cerrado que no quedan publicaciones ni bloqueos suyos, que no se
ha perdido ni duplicado ninguna evaluación, y que tras un error vuelven a
abrirse todas las pantallas.

  --gestos N    cuántos gestos (100000)
  --semilla S   con qué números al azar (1)
  --odbc C      las escuelas, en una base de datos de PostgreSQL aún sin tablas, que
                quedan en ella; todo ha de ir como en un fichero, línea por línea
  --duena C     lo mismo, como quien hace las tablas
)";

void Run(const WalkOptions& options, History& history) {
  if (!options.odbc.empty()) {
    WalkOnServer(options, history, std::cout);
    return;
  }
  Walk walk(options, history);
  walk.Run();
  walk.Report(std::cout);
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  return WalkMain({"walk", kUsage, {}, Run, true}, argc, argv);
}
