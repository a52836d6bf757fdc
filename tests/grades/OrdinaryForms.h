#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/grades/Statements.h"

namespace quorvane::test {

/// One of the four ordinary forms, with what tells it from the others. Each shows and saves subject
/// 3111 of student 1, pending row 2, to the tutor of the section.
struct OrdinaryForm {
  const char* name;
  std::string open;      ///< to the first subject or student
  std::string toLengua;  ///< the gestures that show the row
  // Texts.
  const char* label;
  const char* loading;
  const char* saving;
  const char* nothing;
  bool secondMessage;  ///< after the refusal of an own publication
  std::pair<std::string, std::string> (*captionsAtWork)();
  // Statements of the load.
  std::vector<std::string> load;   ///< of `Form_Load`, behind the question for the tutor
  const char* rows;                ///< of a student's subjects, the beginning of its condition
  bool hostAsked;                  ///< whether grades are active
  std::vector<std::string> purge;  ///< of pending row 2 when its subject is gone
  const char* purgeError;
  const char* otherKind;  ///< the error of a subject of kind 4
  // The grid.
  const char* headings;  ///< from the second time on
  const char* row;
  std::vector<int> widths;
  int keyOfSubject;          ///< under which a student holds the subject, `IDMatDetalle`
  bool editOnSelection;      ///< showing another entry begins an edit
  bool paneOnSelection;      ///< and fills the pane of the tutor
  const char* headingError;  ///< of an edit of the heading, to which no student belongs
  // Saving of a passing grade while a later evaluation holds the mark, and while none does.
  std::vector<std::string> saveBehind;
  std::vector<std::string> save;
  // Routines without a caller.
  std::string objectiveColumns;
  std::string (*objectives)();
  const char* keyName;          ///< of a new row's key
  const char* objectiveSought;  ///< the columns
  const char* gradesTable;      ///< of the last insert, with its blanks
  Lines (*adding)();
};

inline void PrintTo(const OrdinaryForm& form, std::ostream* out) { *out << form.name; }

const std::vector<OrdinaryForm>& OrdinaryFormsTable();

}  // namespace quorvane::test
