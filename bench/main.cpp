#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "bench/BenchSchool.h"
#include "bench/GradesBench.h"
#include "bench/GuionMemory.h"
#include "bench/Measure.h"
#include "bench/RegisterBench.h"
#include "bench/Replay.h"
#include "bench/Report.h"
#include "bench/ServerBench.h"
#include "bench/ServerReport.h"
#include "bench/StatementCost.h"
#include "platform/text/PlainNumber.h"

namespace {

using namespace quorvane::bench;

constexpr const char* kMemory = "/dev/shm";

/// The statements of all that opens, on the largest school.
std::vector<RecordedStatement> Openings(const std::vector<Row>& rows) {
  std::vector<RecordedStatement> statements;
  for (const auto& row : rows)
    if (row.opening)
      statements.insert(statements.end(), row.statements.begin(), row.statements.end());
  return statements;
}

int Run(const std::string& guion, const std::string& folder, const std::vector<int>& sizes) {
  if (!HasQt())
    std::fprintf(stderr,
                 "Sin Qt SQL: al construir no estaba (qt6-base-dev, libqt6sql6-sqlite); no se "
                 "compara con él.\n");
  std::vector<Row> rows;
  std::vector<Memory> memory;
  StatementCost cost;
  for (const auto students : sizes) {
    std::fprintf(stderr, "Escuela de %d alumnos...\n", students);
    const BenchSchool school(folder, students);
    auto ofSchool = MeasureRegister(school, students);
    for (auto& row : MeasureGrades(school, students)) ofSchool.push_back(std::move(row));
    memory.push_back({students, GuionMemory(guion, school)});
    cost = MeasureStatements(school.Path(), Openings(ofSchool));
    std::move(ofSchool.begin(), ofSchool.end(), std::back_inserter(rows));
  }
  return Report(rows, cost, memory) ? 0 : 1;
}

/// The servers of the tests leave it in the environment (tests/servidor/con_servidor.py).
int RunOnServer(const std::string& folder, const std::vector<int>& sizes) {
  const auto* const server = std::getenv("QUORVANE_PRUEBAS_DUENA");
  if (server == nullptr) {
    std::fprintf(
        stderr,
        "No hay servidor: QUORVANE_PRUEBAS_DUENA no dice cómo llegar a él. Con un servidor "
        "de usar y tirar: tools/medidas --servidor\n");
    return 2;
  }
  const auto product = quorvane::SchoolAddress::Odbc(std::string(server) + ";Database=postgres")
                           .Open("")
                           ->Execute("SHOW server_version")
                           .Fields(0)
                           .Text();
  const auto rows = MeasureServer(server, folder, sizes);
  return ReportServer("PostgreSQL " + product, rows, sizes) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<int> sizes;
  std::string folder = std::filesystem::exists(kMemory) ? kMemory : ".";
  std::string form;
  std::size_t times = 0;
  auto onServer = false;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--help" || argument == "-h") {
      std::printf(
          "Uso: quorvane-bench [--carpeta CARPETA] [--servidor] [--solo FORMULARIO VECES] "
          "[ALUMNOS...]\n\n"
          "Mide el módulo en escuelas de esos tamaños (1000, 20000 y 200000 si no se dan) junto\n"
          "a las mismas sentencias en sqlite3, SQLiteCpp y Qt SQL, y escribe las tablas. Acaba\n"
          "con 1 si algo pasa de su límite.\n\n"
          "  --carpeta   dónde hacer las escuelas; /dev/shm si existe, para medir los programas\n"
          "              y no el disco\n"
          "  --servidor  en el servidor PostgreSQL de QUORVANE_PRUEBAS_DUENA, una cadena de\n"
          "              conexión sin base de datos, junto a las mismas sentencias en libpq\n"
          "  --solo      solo abre y guarda ese formulario de notas, para un perfilador\n");
      return 0;
    }
    if (argument == "--carpeta" && i + 1 < argc) {
      folder = argv[++i];
      continue;
    }
    if (argument == "--servidor") {
      onServer = true;
      continue;
    }
    if (argument == "--solo" && i + 2 < argc) {
      form = argv[++i];
      times = quorvane::PlainNumber<std::size_t>(argv[++i]).value_or(0);
      if (times > 0) continue;
      std::fprintf(stderr, "No es un número de veces: %s\n", argv[i]);
      return 2;
    }
    const auto size = quorvane::PlainNumber<int>(argument).value_or(0);
    if (size < 1) {
      std::fprintf(stderr, "No es un número de alumnos: %s\n", argument.c_str());
      return 2;
    }
    sizes.push_back(size);
  }
  if (sizes.empty()) sizes = {1000, 20000, 200000};
  try {
    if (!form.empty()) {
      if (PlayAlone(BenchSchool(folder, sizes.front()), form, times)) return 0;
      std::fprintf(stderr, "No hay ningún formulario de notas %s\n", form.c_str());
      return 2;
    }
    if (onServer) return RunOnServer(folder, sizes);
    const auto guion =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "quorvane-guion";
    return Run(guion, folder, sizes);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "La medida ha fallado: %s\n", error.what());
    return 1;
  }
}
