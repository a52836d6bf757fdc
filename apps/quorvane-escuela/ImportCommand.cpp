#include "apps/quorvane-escuela/ImportCommand.h"

#include <algorithm>
#include <iostream>

#include "apps/escuela/Counted.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

constexpr std::size_t kMostShown = 1000;

void PrintSome(std::ostream& out, const std::vector<std::string>& lines) {
  const auto shown = std::min(lines.size(), kMostShown);
  for (std::size_t i = 0; i < shown; ++i) out << VisibleText(lines[i]) << '\n';
  if (shown < lines.size()) out << "… y otras " << lines.size() - shown << " líneas\n";
}

}  // namespace

int Import(const SchoolAddress& address, const std::string& file, const ImportOptions& options) {
  ImportReport report;
  UnlessStopped([&] {
    const ProgressLine progress("Importando", ProgressLine::kPatience);
    report = ImportRegister(address, file, options, [&](std::size_t done, std::size_t all) {
      RequireGoing();
      progress.Percent(done, all);
    });
    return 0;
  });
  const auto fits = report.misfits.empty();
  if (report.written || options.simulate)
    for (const auto& warning : report.warnings)
      std::cerr << "quorvane-escuela: aviso: " << VisibleText(warning) << '\n';
  if (options.simulate) PrintSome(std::cout, report.lines);
  if (!fits) {
    std::cout << "No encajan:\n";
    PrintSome(std::cout, report.misfits);
  }
  if (report.written)
    std::cout << "Importadas " << Counted(report.subjects, "materia", "materias") << " de "
              << Counted(report.students, "alumno", "alumnos") << "; "
              << Counted(report.standing, "ya estaba", "ya estaban") << "; "
              << Counted(report.teachers, "profesor puesto", "profesores puestos") << '\n';
  else if (options.simulate)
    std::cout << "Simulado: no se ha escrito nada\n";
  else
    std::cout << "No se ha importado nada: corrija el fichero, o repita con --lo-que-se-pueda\n";
  return fits || options.whatFits ? 0 : 1;
}

}  // namespace quorvane
