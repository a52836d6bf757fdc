#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/ExpectedStatements.h"  // IWYU pragma: export
#include "tests/support/FormView.h"
#include "tests/support/Matchers.h"  // IWYU pragma: export
#include "tests/support/ScriptRun.h"
#include "tests/support/Sessions.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/Traffic.h"

namespace quorvane::test {

using namespace expected;  // NOLINT(google-build-using-namespace): every test speaks in them.

/// One of the four step-one dialogs, as a test that holds for all of them takes it.
struct Dialog {
  int node;
  const char* ordinary;     ///< the form of step two, which the others are named after
  const char* choice = "";  ///< its own list, empty when it has none
  const char* entry = "";   ///< an entry of that list in `PendingSchool`

  [[nodiscard]] bool BySection() const { return *choice != '\0'; }
  [[nodiscard]] std::string Form() const { return std::string(ordinary) + "1"; }
  /// That of step two for the final evaluations.
  [[nodiscard]] std::string Final() const { return std::string(ordinary) + "Final"; }
};

inline constexpr Dialog kByStudent{124, "frmNotaManual"};
inline constexpr Dialog kBySubject{125, "frmNotaMateria"};
inline constexpr Dialog kSectionByStudent{127, "frmNotaSeccionAlumno", "cboMateria", "=3111"};
inline constexpr Dialog kSectionBySubject{126, "frmNotaSeccionMateria", "cboAlumno", "=1"};
inline constexpr Dialog kDialogs[] = {kByStudent, kBySubject, kSectionByStudent, kSectionBySubject};

inline void PrintTo(const Dialog& dialog, std::ostream* out) { *out << dialog.Form(); }

/// A small school whose section 321 keeps a pending register.
///
/// Student 1 owes 3111 "Lengua" (pending subject 1) and 3112 "Matemáticas" (2), student 2 owes 3111
/// (3) and the work placement 3116 "Taller" (4), student 4, who has left, 3111 (5); all are on the
/// register of 321. Student 5 is on that of 331 and owes 3211 "Lengua" of 2º ESO (6).
/// All subjects but the placement are graded in evaluation 1, all in the finals 4 and 5; 3 in 2
/// too. Person 2 teaches 3112. No grade is entered.
class PendingSchool : public SmallSchool {
 public:
  PendingSchool() {
    for (const auto student : {1, 2, 4}) Registra(321, student);
    Registra(331, 5);
    static_cast<void>(Pendiente(1, 3111, 1));
    static_cast<void>(Pendiente(1, 3112, 2));
    static_cast<void>(Pendiente(2, 3111, 1));
    static_cast<void>(Pendiente(2, 3116, 2));
    static_cast<void>(Pendiente(4, 3111, 1));
    static_cast<void>(Pendiente(5, 3211, 1));
    for (const auto pending : {1, 2, 3, 5, 6}) Evalua(pending, 1);
    Evalua(3, 2);
    for (const auto pending : {1, 2, 3, 4, 5, 6})
      for (const auto evaluation : {4, 5}) Evalua(pending, evaluation);
    Profesor(2, 3112);
  }
};

/// Opens the dialog and plays the commands.
inline ScriptResult Play(const TestSchool& school, const Dialog& dialog,
                         const std::string& commands,
                         const ScriptOptions& options = Unrestricted()) {
  return RunScript(school, "nodo " + std::to_string(dialog.node) + "\n" + commands + "\n", options);
}

inline const std::string kGoOn = "cmdNotaManual1(0)";
inline const std::string kNext = "pulsar " + kGoOn;
inline const std::string kLeave = "pulsar cmdNotaManual1(1)";
inline const std::string kSection = "elegir cboSecciones =321";

/// The statements that a command led to.
inline Lines AskedBy(const ScriptResult& result, const std::string& command) {
  return Statements(result.After(command));
}
/// Chooses that evaluation.
inline std::string Evaluation(int evaluation) {
  return "elegir cboEvaluaciones =" + std::to_string(evaluation);
}

/// The commands that choose course 32, section 321 and the evaluation, and the entry of the
/// dialog's own list, if it has one.
inline std::string Choose(const Dialog& dialog, int evaluation) {
  auto commands = "elegir cboCursos =32\n" + kSection + "\n" + Evaluation(evaluation) + "\n";
  if (dialog.BySection())
    commands += std::string("elegir ") + dialog.choice + " " + dialog.entry + "\n";
  return commands;
}

/// A test's name for the dialog.
inline const auto kNameOfDialog = [](const auto& dialog) { return dialog.param.Form(); };

/// A test that holds for each of the dialogs.
class EachDialogTest : public ::testing::TestWithParam<Dialog> {
 protected:
  [[nodiscard]] std::string Name() const { return dialog_.Form(); }
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
    return Play("elegir cboCursos =32\n" + kSection + "\n" + commands);
  }
  static void ExpectBarred(const ScriptResult& result) {
    EXPECT_FALSE(FormView(result).Enabled(kGoOn)) << result.Text();
  }
  static void ExpectFree(const ScriptResult& result) {
    EXPECT_TRUE(FormView(result).Enabled(kGoOn)) << result.Text();
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
                                const std::string& before = {}) const {
    const auto choose = kSection + "\n" + Evaluation(evaluation) + "\nver";
    return Play(school, dialog_, "elegir cboCursos =32\n" + before + choose, options);
  }
  [[nodiscard]] Lines Read(int evaluation, const ScriptOptions& options = Unrestricted(),
                           const std::string& before = {}) const {
    return Read(ChooseEvaluation(evaluation, options, before));
  }
  /// What the choice read, and what it put into the list.
  [[nodiscard]] static Lines Read(const ScriptResult& result) {
    const auto chosen =
        std::find_if(result.lines.begin(), result.lines.end(),
                     [](const auto& line) { return line.starts_with("> elegir cboEvaluaciones"); });
    return Statements({chosen, result.lines.end()});
  }
  [[nodiscard]] Lines Entries(const ScriptResult& result) const {
    return FormView(result).Entries(dialog_.choice);
  }
  /// The choice reads those statements behind what every choice asks; and the list then has those
  /// entries, in any order.
  void Expect(int evaluation, const Lines& statements, const Lines& entries,
              const ScriptOptions& options = Unrestricted(), const std::string& before = {}) const {
    const auto result = ChooseEvaluation(evaluation, options, before);
    EXPECT_EQ(Read(result), Asks(evaluation, statements)) << result.Text();
    EXPECT_THAT(Entries(result), ::testing::UnorderedElementsAreArray(entries));
    if (!entries.empty()) return;
    EXPECT_FALSE(FormView(result).Enabled(kGoOn));
    EXPECT_THAT(result.Of("error"), IsEmpty());
  }
  /// The grade that those pending subjects have in the evaluation.
  void Grade(int grade, const std::string& pending, int evaluation = 4) const {
    school.Sql("UPDATE EvaluacionActaPte SET CodNota=" + std::to_string(grade) +
               " WHERE CodAlumnoPte_MatDet IN (" + pending +
               ") AND CodNumEvaluacion=" + std::to_string(evaluation));
  }
  /// What each choice asks ahead of those statements.
  [[nodiscard]] static Lines Asks(int evaluation, const Lines& statements) {
    Lines lines = {Sql(kFinalAndOrder, {evaluation})};
    if (evaluation == 5) lines.push_back(Sql(kFirstFinalOfList, {-1}));
    return lines + statements;
  }

  const Dialog& dialog_;
  PendingSchool school;
};

}  // namespace quorvane::test
