// What a save costs with the history of grades beside one without: medida-historial FILE, or a
// connection string, of a school that it may change.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/history/GradeHistory.h"

namespace quorvane {
namespace {

constexpr auto kRows = 150;  // thirty students of five subjects
constexpr auto kSaves = 15;
constexpr auto kChanged = 5;  // one row of so many is another than before

/// As a save writes: every row, whether it has changed or not.
double Save(Connection& school, int save) {
  const auto begin = std::chrono::steady_clock::now();
  for (int row = 1; row <= kRows; ++row) {
    const auto id = std::to_string(row);
    const auto grade = std::to_string(1 + (row % kChanged == 0 ? save % 9 : 0));
    school.Execute("UPDATE EvaluacionPte SET UltimaEvaluada=-1, CodNota=" + grade +
                   ", CodNotaActitud=0, CodNotaObservacion=0, CodNotaConcepto=0, "
                   "CodNotaProcedimiento=0, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
                   "CodAlumnoPte_MatDet=" +
                   id);
    school.Execute(
        "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE UltimaEvaluada=-1 AND CodNumEvaluacion>1 "
        "AND CodAlumnoPte_MatDet=" +
        id);
    school.Execute(
        "UPDATE EvaluacionPte SET UltimaEvaluada=0 WHERE CodNumEvaluacion<>1 AND "
        "CodAlumnoPte_MatDet=" +
        id);
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// By turns, so that a machine that grows slower does so to both.
void Measure(Connection& school) {
  GradeHistory history(school);
  std::vector<double> without;
  std::vector<double> with;
  for (int save = 0; save < kSaves; ++save) {
    history.Deactivate();
    Save(school, 2 * save);
    without.push_back(Save(school, 2 * save + 1));
    history.Activate();
    Save(school, 2 * save);
    with.push_back(Save(school, 2 * save + 1));
  }
  const auto middle = [](std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
  };
  const auto before = middle(without);
  const auto after = middle(with);
  std::printf("Guardar 150 filas: %.1f ms sin historial, %.1f ms con él: %.2f veces\n",
              before * 1000, after * 1000, after / before);
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "Uso: medida-historial FICHERO | CADENA\n");
    return 2;
  }
  try {
    const std::string place = argv[1];
    const auto address = quorvane::odbc::ConnectionString::Looks(place)
                             ? quorvane::SchoolAddress::Odbc(place)
                             : quorvane::SchoolAddress::File(place);
    quorvane::Measure(*address.Open(""));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "medida-historial: %s\n", error.what());
    return 1;
  }
}
