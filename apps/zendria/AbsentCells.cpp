#include "apps/zendria/AbsentCells.h"

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

#include "apps/zendria/GradeForm.h"
#include "apps/zendria/HeldSubjects.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {
namespace {

/// Their `IDMateriaDetalles`: what the forms have for a key isn't it in all of them.
std::set<std::int32_t> SubjectsOf(Connection& school, const std::vector<GradeCell>& cells) {
  std::set<std::int32_t> subjects;
  for (const auto& cell : cells) {
    const auto row =
        school.Execute("SELECT CodMatDet FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=" +
                       std::to_string(cell.pending));
    if (!row.Eof()) subjects.insert(row.Fields("CodMatDet").Long());
  }
  return subjects;
}

}  // namespace

AbsentCells::State AbsentCells::StateOf(const GradeCell& cell) const {
  const auto* const field = form_.Field(cell.column);
  if (field == nullptr || field->name != cell.field) return State::Gone;
  const auto sheet = form_.Sheet();
  try {
    const auto row = school_.Execute("SELECT " + cell.field + " FROM " + sheet.table +
                                     " WHERE CodNumEvaluacion=" + std::to_string(sheet.evaluacion) +
                                     " AND CodAlumnoPte_MatDet=" + std::to_string(cell.pending));
    if (row.Eof()) return State::Gone;
    return row.Fields(cell.field).Long() == cell.data ? State::Saved : State::Waiting;
  } catch (const RuntimeError&) {
    // No grade is dropped for a question that got no answer.
    return State::Waiting;
  }
}

QString AbsentCells::Holders(const std::vector<GradeCell>& cells) const {
  if (cells.empty()) return {};
  try {
    const auto absent = SubjectsOf(school_, cells);
    auto held = SubjectReader(school_, user_).Held(SoughtBy(form_));
    held.erase(
        std::remove_if(held.begin(), held.end(),
                       [&absent](const HeldSubject& one) { return absent.count(one.detail) == 0; }),
        held.end());
    return HeldText(held);
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace quorvane::zendria
