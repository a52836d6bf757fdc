#pragma once

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/FormView.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/Sessions.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/Traffic.h"

namespace quorvane::test {

/// One of the four step-one dialogs, as a test that holds for all of them takes it.
struct Dialog {
  int node;
  const char* form;
  const char* choice;    ///< its own list, empty when it has none
  const char* entry;     ///< an entry of that list in `PendingSchool`
  const char* ordinary;  ///< the form of step two
  const char* final;     ///< and that for the final evaluations

  [[nodiscard]] bool BySection() const { return *choice != '\0'; }
};

inline constexpr Dialog kByStudent{124, "frmNotaManual1", "",
                                   "",  "frmNotaManual",  "frmNotaManualFinal"};
inline constexpr Dialog kBySubject{125, "frmNotaMateria1", "",
                                   "",  "frmNotaMateria",  "frmNotaMateriaFinal"};
inline constexpr Dialog kSectionByStudent{
    127,     "frmNotaSeccionAlumno1", "cboMateria",
    "=3111", "frmNotaSeccionAlumno",  "frmNotaSeccionAlumnoFinal"};
inline constexpr Dialog kSectionBySubject{
    126,  "frmNotaSeccionMateria1", "cboAlumno",
    "=1", "frmNotaSeccionMateria",  "frmNotaSeccionMateriaFinal"};
inline constexpr Dialog kDialogs[] = {kByStudent, kBySubject, kSectionByStudent, kSectionBySubject};

inline void PrintTo(const Dialog& dialog, std::ostream* out) { *out << dialog.form; }

/// A small school whose section 321 keeps a pending register.
///
/// Student 1 owes 3111 "Lengua" (pending subject 1) and 3112 "Matemáticas" (2), student 2 owes 3111
/// (3) and the work placement 3116 "Taller" (4), student 4, who has left, 3111 (5); all are on the
/// register of 321. Student 5 is on that of 331 and owes 3211 "Lengua" of 2º ESO (6).
/// All subjects but the placement are graded in evaluation 1, all in the finals 4 and 5; 3 in 2
/// too. Person 2 teaches 3112. No grade is entered.
class PendingSchool : public SmallSchool {
 public:
  PendingSchool();
};

/// Opens the dialog and plays the commands.
ScriptResult Play(const TestSchool& school, const Dialog& dialog, const std::string& commands,
                  const ScriptOptions& options = Unrestricted());

/// The commands that choose course 32, section 321 and the evaluation, and the entry of the
/// dialog's own list, if it has one.
std::string Choose(const Dialog& dialog, int evaluation);

inline const std::string kNext = "pulsar cmdNotaManual1(0)";
inline const std::string kLeave = "pulsar cmdNotaManual1(1)";

/// A test's name for the dialog.
inline const auto kNameOfDialog = [](const auto& dialog) { return std::string(dialog.param.form); };

/// A test that holds for each of the dialogs.
class EachDialogTest : public ::testing::TestWithParam<Dialog> {
 protected:
  [[nodiscard]] std::string Name() const { return dialog_.form; }
  [[nodiscard]] std::string Node() const { return "nodo " + std::to_string(dialog_.node); }
  ScriptResult Play(const std::string& commands,
                    const ScriptOptions& options = Unrestricted()) const {
    return test::Play(school, dialog_, commands, options);
  }
  /// With everything chosen in that evaluation.
  ScriptResult PlayIn(int evaluation, const std::string& commands,
                      const ScriptOptions& options = Unrestricted()) const {
    return Play(Choose(dialog_, evaluation) + commands, options);
  }

  /// With section 321 chosen.
  ScriptResult PlayInSection(const std::string& commands) const {
    return Play("elegir cboCursos =32\nelegir cboSecciones =321\n" + commands);
  }

  const Dialog dialog_ = GetParam();
  PendingSchool school;
};

/// The list of its own that a dialog of a section fills for an evaluation.
class OwnListTest : public ::testing::Test {
 protected:
  explicit OwnListTest(const Dialog& dialog) : dialog_(dialog) {}

  /// Chooses that evaluation of section 321; `before` are gestures ahead of the section.
  ScriptResult ChooseEvaluation(int evaluation, const ScriptOptions& options = Unrestricted(),
                                const std::string& before = {}) const;
  [[nodiscard]] Lines Read(int evaluation, const ScriptOptions& options = Unrestricted(),
                           const std::string& before = {}) const {
    return Read(ChooseEvaluation(evaluation, options, before));
  }
  /// What the choice read, and what it put into the list.
  [[nodiscard]] static Lines Read(const ScriptResult& result);
  [[nodiscard]] Lines Entries(const ScriptResult& result) const {
    return FormView(result).Entries(dialog_.choice);
  }
  /// What each choice asks ahead of those statements.
  [[nodiscard]] static Lines Asks(int evaluation, const Lines& statements);

  const Dialog& dialog_;
  PendingSchool school;
};

}  // namespace quorvane::test
