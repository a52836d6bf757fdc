#pragma once

#include <sstream>
#include <string>

#include "apps/quorvane-guion/PlayScript.h"

namespace quorvane::test {

/// What a user sees who opens every screen of a school in a file, the first entry of each list
/// chosen, and closes it again. A line that begins with "error" tells of a screen that
/// didn't open. `driver` goes by the engine's ODBC driver instead of the file itself.
inline std::string AllScreens(const std::string& school, bool driver = false) {
  std::string script =
      "nodo 123\nelegir cboTEnsenanza #0\nelegir cboCurso #2\nelegir cboSeccion #0\n"
      "pulsar cmdAceptar\nver\nfila msgAlumnos 1 0\npulsar cmdPropiedades\nver\ncerrar\n"
      "pestana TabDatos 2\npulsar cmdPropMat\ncerrar\ncerrar\ncerrar\n";
  for (const auto* const node : {"124", "125", "126", "127"}) {
    script += std::string("nodo ") + node + "\nelegir cboTipoEnsenanza #0\nelegir cboCursos #2\n";
    for (const auto* const list : {"cboSecciones", "cboEvaluaciones", "cboAlumno", "cboMateria"})
      script += std::string("elegir ") + list + " #0\n";
    script += "pulsar cmdNotaManual1(0)\nver\ncerrar\ncerrar\n";
  }
  guion::PlayOptions options;
  (driver ? options.odbc : options.bd) = driver ? "Driver=SQLite3;Database=" + school : school;
  options.host.hoy = "01/01/2026";
  std::istringstream commands(script);
  std::ostringstream out;
  guion::PlayScript(options, commands, out, out);
  return out.str();
}

/// Its first line of an error; empty when all screens opened.
inline std::string ScreenError(const std::string& school) {
  std::istringstream lines(AllScreens(school));
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with("error")) return line;
  return {};
}

}  // namespace quorvane::test
