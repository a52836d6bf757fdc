#pragma once

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/ScriptRun.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {

/// One of the four step-one dialogs, as a test that holds for all of them takes it.
struct Dialog {
  int node;
  const char* form;
  const char* choice;  ///< its own list, empty when it has none
  const char* entry;   ///< an entry of that list in `PendingSchool`

  [[nodiscard]] bool BySection() const { return *choice != '\0'; }
};

inline constexpr Dialog kByStudent{124, "frmNotaManual1", "", ""};
inline constexpr Dialog kBySubject{125, "frmNotaMateria1", "", ""};
inline constexpr Dialog kSectionByStudent{127, "frmNotaSeccionAlumno1", "cboMateria", "=3111"};
inline constexpr Dialog kSectionBySubject{126, "frmNotaSeccionMateria1", "cboAlumno", "=1"};
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

/// Sessions: profile 0; the tutor of 321; the teacher of 3112; a user who is no member of staff.
ScriptOptions Unrestricted();
ScriptOptions Tutor();
ScriptOptions Teacher();
ScriptOptions NoStaff();

/// Opens the dialog and plays the commands.
ScriptResult Play(const TestSchool& school, const Dialog& dialog, const std::string& commands,
                  const ScriptOptions& options = Unrestricted());

/// The commands that choose course 32, section 321 and the evaluation, and the entry of the
/// dialog's own list, if it has one.
std::string Choose(const Dialog& dialog, int evaluation);

inline const std::string kNext = "pulsar cmdNotaManual1(0)";
inline const std::string kLeave = "pulsar cmdNotaManual1(1)";

/// The statements among the lines, each with its connection.
std::vector<std::string> Statements(const std::vector<std::string>& lines);
/// The first so many of them.
std::vector<std::string> First(std::vector<std::string> lines, std::size_t count);

/// The text with its "{}" filled in from left to right.
std::string Fill(const std::string& text, std::initializer_list<long> numbers);

/// What the last `ver` of a script showed.
class View {
 public:
  explicit View(const ScriptResult& result);

  /// The entries of a list as "text=data".
  [[nodiscard]] std::vector<std::string> Entries(const std::string& list) const;
  [[nodiscard]] int Index(const std::string& list) const;
  [[nodiscard]] bool Enabled(const std::string& control) const;
  [[nodiscard]] bool Visible(const std::string& control) const;
  [[nodiscard]] std::string Caption(const std::string& control) const;
  [[nodiscard]] int Value(const std::string& checkBox) const;
  [[nodiscard]] bool Has(const std::string& control) const;
  [[nodiscard]] std::string Title() const;

 private:
  std::string json_;
};

}  // namespace quorvane::test
