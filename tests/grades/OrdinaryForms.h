#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/grades/GradeForm.h"
#include "tests/grades/GradeSchool.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Sessions.h"

namespace quorvane::test {

/// What tells an ordinary form from the others besides. Each shows and saves pending row 2 to the
/// tutor of the section.
struct OrdinaryTexts {
  const char* label;
  // Statements of the load, to the tutor.
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
  int index = 1;                  ///< of the entry with the row
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
};

struct OrdinaryForm : GradeForm, OrdinaryTexts {
  using School = GradeSchool;
};

extern const OrdinaryForm kByStudent;
extern const OrdinaryForm kBySubject;
extern const OrdinaryForm kSectionByStudent;
extern const OrdinaryForm kSectionBySubject;

/// The four, and the three that respect a later mark.
std::vector<OrdinaryForm> OrdinaryForms();
std::vector<OrdinaryForm> FormsThatRespectTheMark();

/// An ordinary form on the small school, played by scripts. Unless told who, the tutor plays.
class FormScripts {
 protected:
  explicit FormScripts(const OrdinaryForm& form) : form_(form) {}

  /// Opens the form and goes on.
  ScriptResult Play(const std::string& gestures = {}, const ScriptOptions& user = Tutor()) const {
    return RunScript(school_, form_.Open() + gestures, user);
  }
  /// The same with gestures on step one before it is left.
  ScriptResult PlayBehind(const std::string& before, const std::string& gestures = {},
                          const ScriptOptions& user = Tutor()) const {
    return RunScript(school_, form_.Open(before) + gestures, user);
  }
  /// With another user's statement between the choice of step one and step two.
  ScriptResult PlayAfter(const std::string& statement, const std::string& gestures = {},
                         const ScriptOptions& user = Tutor()) const {
    return PlayBehind("sql \"" + statement + "\"\n", gestures, user);
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
