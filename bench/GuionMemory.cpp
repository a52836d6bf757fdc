#include "bench/GuionMemory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>

namespace quorvane::bench {
namespace {

std::string Script() {
  const auto chosen = [](const char* combo, int data) {
    return std::string("elegir ") + combo + " =" + std::to_string(data) + "\n";
  };
  return "nodo 123\n" + chosen("cboTEnsenanza", BenchSchool::kKind) +
         chosen("cboCurso", BenchSchool::kCourse) + chosen("cboSeccion", BenchSchool::kSection) +
         "pulsar cmdAceptar\npulsar cmdAceptar\nnodo 124\n" +
         chosen("cboTipoEnsenanza", BenchSchool::kKind) +
         chosen("cboCursos", BenchSchool::kCourse) + chosen("cboSecciones", BenchSchool::kSection) +
         chosen("cboEvaluaciones", BenchSchool::kEvaluation) +
         "pulsar cmdNotaManual1(0)\npulsar cmdAceptar\ncerrar\n";
}

}  // namespace

double GuionMemory(const std::string& program, const BenchSchool& school) {
  const auto script = school.Path() + ".guion";
  std::ofstream(script) << Script();
  const auto command = "'" + program + "' --bd '" + school.Path() + "' '" + script + "' >/dev/null";
  const auto status = std::system(command.c_str());
  std::filesystem::remove(script);
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  return status == 0 ? static_cast<double>(usage.ru_maxrss) / 1024 : 0;
}

}  // namespace quorvane::bench
