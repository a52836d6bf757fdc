#include "apps/zendria/GradeCell.h"

#include <algorithm>

#include "apps/zendria/GradeForm.h"
#include "platform/RuntimeError.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Retivo.h"
#include "register/cMateria.h"

namespace quorvane::zendria {
namespace {

void ReadEntry(const Retivo& grid, int entry, GradeCell& cell) {
  const auto& list = grid.Lista(grid.Col());
  const auto index = static_cast<std::size_t>(entry);
  if (entry < 0 || index >= list.size()) return;
  cell.text = list[index].text;
  cell.data = list[index].data;
}

}  // namespace

const StepChoice* Choice(const GradeSheet& sheet, std::string_view control) {
  const auto found = std::find_if(sheet.choices.begin(), sheet.choices.end(),
                                  [control](const auto& one) { return one.control == control; });
  return found == sheet.choices.end() ? nullptr : &*found;
}

bool SameCell(const GradeCell& one, const GradeCell& other) {
  return one.student == other.student && one.subject == other.subject && one.column == other.column;
}

std::optional<GradeEdit> ReadGradeEdit(const Form& any, const Retivo& grid, int entry) {
  const auto form = AsGradeForm(any);
  if (form == nullptr || &grid != &form->Grid()) return std::nullopt;
  GradeEdit edit;
  edit.sheet = form->Sheet();
  auto& cell = edit.cell;
  form->ReadPlace(cell);
  cell.column = grid.Col();
  cell.columnText = grid.TextMatrix(0, grid.Col());
  cell.formerText = grid.TextMatrix(grid.Row(), grid.Col());
  ReadEntry(grid, entry, cell);
  const auto* const subject = form->Subject(cell);
  if (subject == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  cell.pending = subject->CodAlumno_MateriaDetalles;
  if (const auto* const field = form->Field(cell.column)) {
    cell.field = field->name;
    cell.formerData = field->stored(*subject);
  }
  return edit;
}

std::optional<std::int32_t> StoredGrade(const Form& any, const Retivo& grid, int row, int column) {
  const auto form = AsGradeForm(any);
  if (form == nullptr || &grid != &form->Grid()) return std::nullopt;
  if (form->AtWork() || form->Walk().ListIndex() < 0 || row >= grid.Rows()) return std::nullopt;
  const auto* const field = form->Field(column);
  if (field == nullptr) return std::nullopt;
  GradeCell cell;
  form->ReadRow(cell, row);
  const auto* const subject = form->Subject(cell);
  return subject == nullptr ? std::nullopt : std::optional(field->stored(*subject));
}

}  // namespace quorvane::zendria
