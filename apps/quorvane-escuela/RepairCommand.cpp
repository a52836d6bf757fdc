#include "apps/quorvane-escuela/RepairCommand.h"

#include <iostream>

#include "apps/escuela/Counted.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "platform/RuntimeError.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

/// Rows that nobody could put back must not go.
void Tell(const RepairReport& report, const SchoolAddress& address, bool simulated) {
  std::cout << (simulated ? "-- Se repararía " : "-- Reparada ") << VisibleText(address.Shown())
            << ": " << Counted(report.removed, "fila borrada", "filas borradas") << ", "
            << Counted(report.changed, "cambiada", "cambiadas") << '\n';
  if (!report.copy.empty())
    std::cout << "-- Como estaba antes: " << VisibleText(report.copy) << '\n';
  std::cout << "-- Estas sentencias lo devolverían, en este orden:\n";
  for (const auto& statement : report.undo) std::cout << statement << '\n';
  if (!std::cout.flush())
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se puede escribir cómo se devolvería, y no se ha tocado nada: "
                       "compruebe que queda espacio en el disco");
}

}  // namespace

int Repair(const SchoolAddress& address, const RepairOptions& options) {
  return UnlessStopped([&] {
    ProgressLine progress("Reparando", ProgressLine::kPatience);
    const auto report = RepairSchool(
        address, options,
        [&](const RepairReport& done) {
          progress.End();
          Tell(done, address, options.simulate);
        },
        [&] {
          RequireGoing();
          progress.Working();
        });
    progress.End();
    if (report.undo.empty() && report.left.empty()) std::cout << "-- No hay nada que reparar\n";
    for (const auto& finding : report.left)
      std::cerr << "quorvane-escuela: No se ha podido reparar: " << VisibleText(finding) << '\n';
    return report.left.empty() ? 0 : 1;
  });
}

}  // namespace quorvane
