// What saving the form of a section, with thirty grades entered, costs with the history of grades
// beside saving it without: medida-historial FILE, or a connection string, of a school that it may
// change. Ends with 1 beyond the limit. Of a file it is the processor's time, as all is done in
// this program; of a server the time that passes.

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <exception>
#include <istream>
#include <sstream>  // IWYU pragma: keep
#include <string>
#include <utility>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/quorvane-guion/PlayScript.h"
#include "platform/RuntimeError.h"
#include "tools/oversight/TimedLines.h"

namespace quorvane {
namespace {

constexpr int kSaves = 31;
constexpr auto kEdited = 30;
constexpr auto kLimit = 1.3;
const std::string kSave = "pulsar cmdAceptar";

/// Opens the largest section in the form of all its students, where grades of one subject are
/// edited and all are saved.
class SectionSaves {
 public:
  SectionSaves(const SchoolAddress& address, Connection& school) {
    clock_ = address.IsOdbc() ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID;
    (address.IsOdbc() ? options_.odbc : options_.bd) = address.Text();
    options_.host.usuario = 1;
    options_.host.perfil = 0;
    options_.host.centro = 1;
    options_.host.hoy = "03/03/2025";
    const auto largest = school.Execute(
        "SELECT Alumno.CodSeccion, Seccion.CodCurso, Curso.CodTipoEnsenanza, COUNT(*) AS Filas "
        "FROM ((AlumnoPte_MatDet INNER JOIN Alumno ON Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno) "
        "INNER JOIN Seccion ON Seccion.IDSeccion=Alumno.CodSeccion) INNER JOIN Curso ON "
        "Curso.IDCurso=Seccion.CodCurso GROUP BY Alumno.CodSeccion, Seccion.CodCurso, "
        "Curso.CodTipoEnsenanza ORDER BY COUNT(*) DESC, Alumno.CodSeccion");
    opening_ = {"nodo 125",
                "elegir cboTipoEnsenanza =" + largest.Fields(2).Text(),
                "elegir cboCursos =" + largest.Fields(1).Text(),
                "elegir cboSecciones =" + largest.Fields(0).Text(),
                "elegir cboEvaluaciones =1",
                "pulsar cmdNotaManual1(0)"};
  }

  /// The seconds of a save in which every edited grade is another than in the last.
  double Once() {
    auto lines = opening_;
    ++saves_;
    for (auto row = 1; row <= kEdited; ++row)
      lines.push_back("editar rtvNotasAlumno " + std::to_string(row) + " 1 \"" +
                      std::to_string(1 + (saves_ + row) % 9) + "\"");
    lines.push_back(kSave);
    lines.emplace_back("pulsar cmdNotaManual1(1)");
    TimedLines timed(lines, clock_);
    std::istream script(&timed);
    std::ostringstream told;
    std::ostringstream errors;
    const auto status = guion::PlayScript(options_, script, told, errors, true);
    if (const auto at = told.str().find("\nrechazo"); at != std::string::npos)
      throw RuntimeError(ErrorNumber::StatementFailed, told.str().substr(at, 200));
    if (status != 0) throw RuntimeError(ErrorNumber::StatementFailed, errors.str());
    return timed.Seconds(kSave);
  }

 private:
  guion::PlayOptions options_;
  clockid_t clock_ = CLOCK_MONOTONIC;
  std::vector<std::string> opening_;
  int saves_ = 0;
};

double Middle(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

/// By turns, so that a machine that grows slower does so to both. Whether it is within the limit.
bool Measure(const SchoolAddress& address) {
  const auto school = address.Open("");
  GradeHistory history(*school);
  SectionSaves form(address, *school);
  std::vector<double> without;
  std::vector<double> with;
  form.Once();
  for (int save = 0; save < kSaves; ++save) {
    history.Deactivate();
    without.push_back(form.Once());
    history.Activate();
    with.push_back(form.Once());
  }
  const auto told = history.Read({}).size();
  history.Deactivate();
  if (std::cmp_less(told, kSaves * kEdited))
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "el historial solo ha guardado " + std::to_string(told) + " cambios");
  const auto before = Middle(without);
  const auto after = Middle(with);
  std::printf("Guardar una sección: %.1f ms sin historial, %.1f ms con él: %.2f veces (%.1f)\n",
              before * 1000, after * 1000, after / before, kLimit);
  return after <= kLimit * before;
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
    return quorvane::Measure(address) ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "medida-historial: %s\n", error.what());
    return 1;
  }
}
