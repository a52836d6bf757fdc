#pragma once

#include <fstream>
#include <sstream>
#include <string>

#include "apps/escuela/Prng.h"
#include "tests/kills/Replica.h"
#include "tests/support/RunCommand.h"

namespace quorvane::test {

/// What another user sees when he opens the four flows on one pending subject.
struct Opened {
  std::string text;  ///< all that the program printed
  int shown = 0;     ///< grade forms that came on the screen
};

/// A pending subject of a school, with all that has to be picked to come to it.
struct Target {
  std::string teaching;
  std::string course;
  std::string section;
  std::string evaluation;
  std::string subject;
  std::string student;
};

inline std::string Flow(int node, const Target& target, const std::string& fifth) {
  return "nodo " + std::to_string(node) + "\nelegir cboTipoEnsenanza =" + target.teaching +
         "\nelegir cboCursos =" + target.course + "\nelegir cboSecciones =" + target.section +
         "\nelegir cboEvaluaciones =" + target.evaluation + "\n" + fifth +
         "pulsar cmdNotaManual1(0)\ncerrar\ncerrar\n";
}

/// One that is locked, if there is any. Empty texts in a school without pending subjects.
inline Target ChooseTarget(const std::string& school, Prng& random) {
  const std::string from =
      "FROM AlumnoPte_MatDet P JOIN EvaluacionPte E ON E.CodAlumnoPte_MatDet=IDAlumnoPte_MatDet "
      "JOIN Seccion_AlumnoPte SA ON SA.CodAlumno=P.CodAlumno "
      "JOIN Seccion ON IDSeccion=SA.CodSeccion JOIN Curso ON IDCurso=CodCurso ";
  const std::string locked =
      "JOIN BloqueoPte B ON B.CodMatDet=P.CodMatDet AND B.CodNumEvaluacion=E.CodNumEvaluacion ";
  const auto any = [&](const std::string& which) {
    const auto count = std::stoul(Replica::First(school, "SELECT COUNT(*) " + from + which));
    if (count == 0) return std::string();
    return Replica::First(school,
                          "SELECT CodTipoEnsenanza,IDCurso,IDSeccion,E.CodNumEvaluacion,"
                          "P.CodMatDet,P.CodAlumno " +
                              from + which + "ORDER BY IDEvaluacionPte,IDSeccion LIMIT 1 OFFSET " +
                              std::to_string(random.Below(count)));
  };
  auto row = any(locked);
  if (row.empty()) row = any("");
  Target target;
  std::istringstream values(row);
  for (auto* const value : {&target.teaching, &target.course, &target.section, &target.evaluation,
                            &target.subject, &target.student})
    std::getline(values, *value, '|');
  return target;
}

/// Opens and closes them with the real program, as the first user of the sample school.
inline Opened OpenForms(const std::string& school, const Target& target) {
  const auto script = school + ".guion";
  std::ofstream(script) << Flow(124, target, "") << Flow(125, target, "")
                        << Flow(126, target, "elegir cboAlumno =" + target.student + "\n")
                        << Flow(127, target, "elegir cboMateria =" + target.subject + "\n");
  const auto command = QUORVANE_GUION " --bd " + Quoted(school) + " --usuario 1 " + Quoted(script);
  Opened opened{RunCommand(command).text};
  std::istringstream lines(opened.text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("muestra frmNota") && !line.ends_with("1")) ++opened.shown;
    // It comes on the screen and goes again at once.
    if (line.find("No existen alumnos o materias para introducir notas") != std::string::npos)
      --opened.shown;
  }
  return opened;
}

}  // namespace quorvane::test
