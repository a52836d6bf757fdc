#pragma once

#include <ostream>
#include <string>

#include "tests/grades/OrdinaryStatements.h"

namespace quorvane::test {

/// One of the three ordinary forms that respect a later mark, for what they have in common. All of
/// them come to grade subject 3111 of student 1, which is pending row 2.
struct OrdinaryFlow {
  const char* form;
  std::string (*open)(int evaluacion, const std::string& before);
  const char* combo;     ///< what the form walks
  const char* toLengua;  ///< the gestures that show student 1 and subject 3111 in row 1
  const char* row;       ///< that row without grades, as the grid shows it
  const char* message;   ///< with nothing to grade
  std::string equals;    ///< of the mark
};

inline void PrintTo(const OrdinaryFlow& flow, std::ostream* out) { *out << flow.form; }

inline const OrdinaryFlow kBySubject{
    "frmNotaMateria",
    [](int evaluacion, const std::string& before) { return OpenBySubject(evaluacion, before); },
    "cboMaterias",
    "elegir cboMaterias \"Lengua (1º ESO)\"\n",
    "2   Díaz Cano, Marta||||||1",
    "No exiten alumnos o materias para introducir notas",
    kEqualsBySubject};

inline const OrdinaryFlow kSectionByStudent{
    "frmNotaSeccionAlumno",
    [](int evaluacion, const std::string& before) {
      return OpenSectionByStudent(evaluacion, 3111, before);
    },
    "cboAlumnos",
    "",
    "Lengua (1º ESO)||||||0|3111",
    "No existen alumnos o materias para introducir sus notas",
    kEqualsBySection};

inline const OrdinaryFlow kSectionBySubject{"frmNotaSeccionMateria",
                                            [](int evaluacion, const std::string& before) {
                                              return OpenSectionBySubject(evaluacion, 1, before);
                                            },
                                            "cboMaterias",
                                            "",
                                            "2   Díaz Cano, Marta||||||1",
                                            "No existen alumnos o materias para calificar",
                                            kEqualsBySection};

}  // namespace quorvane::test
