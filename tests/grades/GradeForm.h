#pragma once

#include <concepts>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "tests/grades/Statements.h"
#include "tests/support/FormView.h"

namespace quorvane::test {

/// What each of the eight grade forms has, with what tells it from the others. Subject 3111 of
/// student 1, Lengua, can be graded in each; the forms of a section are opened on either of them.
struct GradeForm {
  const char* name;
  const char* stepOne;
  int node;
  std::string choice = "";  ///< the gesture that step one asks for besides, with its end of line
  Lines (*stepOneTraffic)(const Role& role, int evaluacion);
  int evaluacion = 1;    ///< in which it is opened
  const char* combo;     ///< what it walks
  int entries = 3;       ///< of the combo
  std::string toLengua;  ///< the gesture that shows Lengua of student 1 in row 1
  const char* loading = "Cargando... Espere por favor";  ///< of the busy sign
  const char* saving = "Grabando... Espere por favor";
  const char* nothing;                     ///< to grade
  bool secondMessage = false;              ///< after the refusal of an own publication
  Lines (*nobodysLoad)(const Role& role);  ///< `Form_Load` to no member of staff
  std::vector<int> widths;

  /// Opens step one, chooses section 321 and its evaluation or that one and goes on. `before` are
  /// gestures before the last one, each with its end of line.
  [[nodiscard]] std::string Open(const std::string& before = "") const;
  [[nodiscard]] std::string Open(int other, const std::string& before = "") const;
  [[nodiscard]] bool IsFinal() const { return evaluacion > 3; }
  [[nodiscard]] bool WalksSubjects() const { return std::string(combo) == "cboMaterias"; }
  /// The message with nothing to grade, as a script prints it.
  [[nodiscard]] std::string NothingToGrade() const;
};

/// That form opened on another subject, where step one chooses one.
template <std::derived_from<GradeForm> Form>
Form On(Form form, int matDet) {
  if (form.choice.starts_with("elegir cboMateria "))
    form.choice = "elegir cboMateria =" + std::to_string(matDet) + "\n";
  return form;
}

template <std::derived_from<GradeForm> Form>
void PrintTo(const Form& form, std::ostream* out) {
  *out << form.name;
}

/// A test's name for the form.
inline const auto kNameOfForm = [](const auto& form) { return std::string(form.param.name); };

/// The refusal of an own publication, as a script prints it.
inline constexpr const char* kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";

/// A publication with number 7 of that user.
std::string PublicationOf(int user, int evaluacion);

}  // namespace quorvane::test
