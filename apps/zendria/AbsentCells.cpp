#include "apps/zendria/AbsentCells.h"

#include <algorithm>
#include <string>

#include "apps/zendria/GradeForm.h"
#include "apps/zendria/HeldSubjects.h"
#include "platform/RuntimeError.h"
#include "platform/data/Collection.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {

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
    auto held = SubjectReader(school_, user_).Held(SoughtBy(form_));
    held.erase(std::remove_if(held.begin(), held.end(),
                              [&cells](const HeldSubject& one) {
                                return std::none_of(cells.begin(), cells.end(),
                                                    [&one](const GradeCell& cell) {
                                                      return cell.subject == Key(one.detail);
                                                    });
                              }),
               held.end());
    return HeldText(held);
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace quorvane::zendria
