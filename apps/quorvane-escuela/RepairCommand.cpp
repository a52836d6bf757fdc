#include "apps/quorvane-escuela/RepairCommand.h"

#include <iostream>

namespace quorvane {
namespace {

std::string Counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

int Repair(const SchoolAddress& address, const RepairOptions& options) {
  const auto report = RepairSchool(address, options);
  if (report.undo.empty()) {
    std::cout << "-- No hay nada que reparar\n";
    return 0;
  }
  std::cout << (options.simulate ? "-- Se repararía " : "-- Reparada ") << address.Shown() << ": "
            << Counted(report.removed, "fila borrada", "filas borradas") << ", "
            << Counted(report.changed, "cambiada", "cambiadas") << '\n';
  if (!report.copy.empty()) std::cout << "-- Como estaba antes: " << report.copy << '\n';
  std::cout << "-- Estas sentencias lo devolverían, en este orden:\n";
  for (const auto& statement : report.undo) std::cout << statement << '\n';
  return 0;
}

}  // namespace quorvane
