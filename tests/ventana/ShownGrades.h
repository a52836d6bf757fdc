#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/ComboBox.h"

namespace quorvane::test {

/// The texts of the cells of one pending subject, by column.
using GradeTexts = std::map<int, std::string>;

/// What a grade form shows on the screen at one moment: a subject's texts by what the subject is
/// known by, see `StoredGrades`.
struct ShownGrades {
  /// `window` is that of a grade form that has loaded; `entry` the item data of the student or
  /// subject whose rows it shows.
  ShownGrades(const qt::FormWindow& window, std::int32_t entry);

  std::vector<std::string> rows;  ///< the subjects' names, as the grid's rows stand
  std::map<std::string, GradeTexts> texts;
};

/// One of the eight forms of step two. Those of step one bear the same names with a 1 behind.
bool EntersGrades(const Form& form);

/// It enters the grades of a final evaluation.
bool EntersFinals(const Form& form);

/// The combo box whose entry says what the form shows: the student, or the subject.
ComboBox& EntriesOf(const Form& form);

/// The evaluation that step one has fixed for it.
std::int32_t EvaluationOf(const Form& form);

/// The columns of the grid that saving the form stores.
const std::vector<int>& StoredColumns(const Form& form);

/// How a text is compared: a list may write a blank or an accent that a loaded cell doesn't.
std::string Plain(const std::string& text);

}  // namespace quorvane::test
