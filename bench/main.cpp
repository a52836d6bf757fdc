#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/BenchSchool.h"
#include "bench/GradesBench.h"
#include "bench/GuionMemory.h"
#include "bench/Measure.h"
#include "bench/RegisterBench.h"

namespace {

using namespace quorvane::bench;

constexpr double kMostGrowth = 1.5;
constexpr const char* kMemory = "/dev/shm";

/// The time of the largest school beside that of the smallest, for each thing that must not grow.
bool PrintGrowth(const std::vector<Row>& rows) {
  std::printf("\n| What | Largest / smallest school | Limit |\n|---|---|---|\n");
  auto within = true;
  for (const auto& first : rows) {
    if (first.limit == 0 || first.limit > 1 || first.students != rows.front().students) continue;
    const Row* last = &first;
    for (const auto& row : rows)
      if (row.what == first.what) last = &row;
    const auto growth = last->module / first.module;
    within = within && growth <= kMostGrowth;
    std::printf("| %s | %.2f | %.1f%s |\n", first.what.c_str(), growth, kMostGrowth,
                growth <= kMostGrowth ? "" : " EXCEEDED");
  }
  return within;
}

int Run(const std::string& guion, const std::string& folder, const std::vector<int>& sizes) {
  std::vector<Row> rows;
  double guionMemory = 0;
  for (const auto students : sizes) {
    std::fprintf(stderr, "Escuela de %d alumnos...\n", students);
    const BenchSchool school(folder, students);
    for (auto& row : MeasureRegister(school, students)) rows.push_back(std::move(row));
    for (auto& row : MeasureGrades(school, students)) rows.push_back(std::move(row));
    guionMemory = GuionMemory(guion, school);
  }
  auto within = Print(rows);
  within = PrintGrowth(rows) && within;
  std::printf("\nPeak memory: this program %.1f MiB, quorvane-guion on the last school %.1f MiB\n",
              PeakMemory(), guionMemory);
  return within ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<int> sizes;
  std::string folder = std::filesystem::exists(kMemory) ? kMemory : ".";
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--help" || argument == "-h") {
      std::printf(
          "Uso: quorvane-bench [--carpeta CARPETA] [ALUMNOS...]\n\nMide el módulo en escuelas de "
          "esos tamaños (1000, 20000 y 200000 si no se dan)\njunto a las mismas instrucciones en "
          "SQLite a secas. Acaba con 1 si algo pasa\nde su límite.\n\n  --carpeta  dónde hacer "
          "las escuelas; /dev/shm si existe, para medir los\n             programas y no el "
          "disco\n");
      return 0;
    }
    if (argument == "--carpeta" && i + 1 < argc) {
      folder = argv[++i];
      continue;
    }
    const auto size = std::atoi(argument.c_str());
    if (size < 1) {
      std::fprintf(stderr, "No es un número de alumnos: %s\n", argument.c_str());
      return 2;
    }
    sizes.push_back(size);
  }
  if (sizes.empty()) sizes = {1000, 20000, 200000};
  try {
    const auto guion =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "quorvane-guion";
    return Run(guion, folder, sizes);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "La medida ha fallado: %s\n", error.what());
    return 1;
  }
}
