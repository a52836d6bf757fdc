#pragma once

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/FormView.h"

namespace quorvane::test {

/// One of the four ordinary forms, with what tells it from the others. Each shows and saves subject
/// 3111 of student 1, pending row 2, to the tutor of the section.
struct OrdinaryForm {
  const char* name;
  const char* stepOne;
  int node;
  const char* ownChoice = "";  ///< the gesture that step one asks for besides, with its end of line
  const char* combo;           ///< what the form walks
  std::string toLengua;        ///< the gesture that shows the row, first in the grid
  int index = 1;               ///< of that entry in evaluation 1
  int entries = 3;             ///< of the combo in evaluation 1
  // Texts.
  const char* label;
  const char* loading = "Cargando... Espere por favor";  ///< of the busy sign
  const char* saving = "Grabando... Espere por favor";
  const char* nothing;
  bool secondMessage = false;  ///< after the refusal of an own publication
  // Statements of the load, to the tutor.
  Lines (*toStepTwo)(const Role& role, int evaluacion);  ///< all of step one
  Lines load;  ///< of `Form_Load`, behind the question for the tutor
  /// Of a student's subjects, the beginning of its condition.
  const char* rows = " WHERE codNumEvaluacion=1 AND CodAlumno=";
  bool hostAsked = false;  ///< whether grades are active
  Lines purge = {};        ///< of pending row 2 when its subject is gone
  const char* purgeError = "";
  const char* otherKind = "3265 ";  ///< the error of a subject of kind 4
  // The grid.
  const char* headings;  ///< from the second time on
  const char* row;
  std::vector<int> widths;
  int keyOfSubject = 3111;        ///< under which a student holds the subject, `IDMatDetalle`
  bool editOnSelection = false;   ///< showing another entry begins an edit
  bool paneOnSelection = true;    ///< and fills the pane of the tutor
  bool tutorWidthsKept = true;    ///< of the columns of that pane
  const char* headingError = "";  ///< of an edit of the heading, to which no student belongs
  // Saving of a passing grade while a later evaluation holds the mark, and while none does.
  Lines saveBehind = SaveBehindTheMark(kTutor, 1, 2, 107);
  Lines save;
  // Routines without a caller.
  const char* objectives = expected::kObjectives;
  const char* keyName = " AS IDMax";                        ///< of a new row's key
  const char* objectiveSought = expected::kObjectiveOrder;  ///< where it is to be added
  const char* insertGrades = expected::kInsertGrades;

  /// Opens step one, chooses section 321 and that evaluation and goes on. `before` are gestures
  /// before the last one, each with its end of line.
  [[nodiscard]] std::string Open(int evaluacion = 1, const std::string& before = {}) const;
  [[nodiscard]] bool WalksSubjects() const { return std::string(combo) == "cboMaterias"; }
  /// The message with nothing to grade, as a script prints it.
  [[nodiscard]] std::string NothingToGrade() const;
};

/// The refusal while the user has that section and evaluation open, as a script prints it.
extern const std::string kInUse;

void PrintTo(const OrdinaryForm& form, std::ostream* out);

extern const OrdinaryForm kByStudent;
extern const OrdinaryForm kBySubject;
extern const OrdinaryForm kSectionByStudent;
extern const OrdinaryForm kSectionBySubject;

/// The four, and the three that respect a later mark.
std::vector<OrdinaryForm> OrdinaryForms();
std::vector<OrdinaryForm> FormsThatRespectTheMark();
const OrdinaryForm& OrdinaryFormNamed(const std::string& name);

/// A test's name for the form.
inline const auto kNameOfForm = [](const auto& form) { return std::string(form.param.name); };

/// An ordinary form on the small school, played by scripts. Unless told who, the tutor plays.
class FormScripts {
 protected:
  explicit FormScripts(const OrdinaryForm& form) : form_(form) {}

  /// Opens the form and goes on.
  ScriptResult Play(const std::string& gestures = {}, const ScriptOptions& user = Tutor()) const {
    return RunScript(school_, form_.Open() + gestures, user);
  }
  /// With another user's statement between the choice of step one and step two.
  ScriptResult PlayAfter(const std::string& statement, const std::string& gestures = {}) const {
    return RunScript(school_, form_.Open(1, "sql \"" + statement + "\"\n") + gestures, Tutor());
  }
  /// What it shows then, whatever a session before has left locked.
  FormView Shown(const std::string& gestures = {}, const ScriptOptions& user = Tutor()) const;

  const OrdinaryForm& form_;
  GradeSchool school_;
};

/// One of the four.
template <const OrdinaryForm& form>
class OneFormTest : public ::testing::Test, protected FormScripts {
 protected:
  OneFormTest() : FormScripts(form) {}
};

/// Each of them.
class EachFormTest : public ::testing::TestWithParam<OrdinaryForm>, protected FormScripts {
 protected:
  EachFormTest() : FormScripts(GetParam()) {}
};

}  // namespace quorvane::test
