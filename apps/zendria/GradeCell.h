#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {
class Form;
class Retivo;
}  // namespace quorvane

namespace quorvane::zendria {

/// An entry that step one has fixed.
struct StepChoice {
  std::string control;  ///< step one's combo box, as "cboSecciones"
  std::string label;    ///< "Sección"
  std::string text;
  std::int32_t data = 0;
};

/// A grade form and what it was opened with: enough to open the same again.
struct GradeSheet {
  std::string form{};  ///< "frmNotaManual"
  std::vector<StepChoice> choices{};
  std::string table{};  ///< where its save writes
  std::int32_t evaluacion = 0;
  bool recovery = false;  ///< the grades of the recovery are entered
};

/// A cell of a grade form, before and after the user's edits. The two keys and the column say
/// which; no two cells of a form share all three.
struct GradeCell {
  std::string student;  ///< the key in the form's `colAlumnos`
  std::string subject;  ///< the key in the student's `colMateria`
  int column = 0;
  std::int32_t pending = 0;  ///< `IDAlumnoPte_MatDet`, the row that a save writes
  std::string field;         ///< of the sheet's table; empty for a column that no save writes

  // What the screen says.
  std::string studentText;
  std::string subjectText;
  std::string columnText;
  std::string formerText;
  std::string text;

  // The item data of the cell's list: a grade, a measure, 0 for none.
  std::int32_t formerData = 0;
  std::int32_t data = 0;
};

struct GradeEdit {
  GradeSheet sheet;
  GradeCell cell;
};

/// What step one has fixed in that combo box; null where it has none of that name.
const StepChoice* Choice(const GradeSheet& sheet, std::string_view control);

/// Keys and column are the same.
bool SameCell(const GradeCell& one, const GradeCell& other);

/// The edit that ends in the current cell of that grid by choosing that entry of its list, -1 for
/// none, while the form still has what was before. None for a grid that doesn't hold the grades of
/// one of the eight grade forms. Error 5 or 381 where the form itself doesn't find the cell's
/// subject.
std::optional<GradeEdit> ReadGradeEdit(const Form& form, const Retivo& grid, int entry);

/// What the form has in memory for a cell of its grid of grades, the row counted as the grid does:
/// the item data of its list, 0 for none. Nothing for another grid, and for a column that holds no
/// grade.
std::optional<std::int32_t> StoredGrade(const Form& form, const Retivo& grid, int row, int column);

}  // namespace quorvane::zendria
