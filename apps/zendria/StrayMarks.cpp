#include "apps/zendria/StrayMarks.h"

#include <QStringList>
#include <QTreeWidgetItem>
#include <set>

#include "apps/escuela/state/SchoolState.h"
#include "apps/zendria/OneLine.h"

namespace quorvane::zendria {

StrayMarks::StrayMarks(Connection& school, const SchoolState& state, std::int32_t evaluation,
                       std::int32_t section)
    : state_(state) {
  StrayFilter filter;
  filter.evaluation = evaluation;
  filter.section = section;
  std::set<bool> kinds;
  for (const auto& one : state.Evaluations())
    if (evaluation == 0 || one.id == evaluation) kinds.insert(one.final);
  for (const auto final : kinds)
    for (auto& stray : StrayStudents(school, final, filter))
      strays_[{stray.evaluation, stray.section, stray.subject}].push_back(std::move(stray));
}

void StrayMarks::Mark(QTreeWidgetItem& item, const StateRow& row) const {
  const auto found = strays_.find({row.evaluation, row.section, row.subject});
  if (found == strays_.end()) return;
  // Short, or the numbers would leave the window: the tip says the rest.
  QStringList registers;
  QStringList names;
  for (const auto& stray : found->second) {
    const auto none = stray.registered == 0;
    const auto section = OneLine(state_.SectionName(stray.registered));
    const auto place = none ? QStringLiteral("sin registro") : "en " + section;
    if (!registers.contains(place)) registers.append(place);
    names.append(OneLine(stray.name) + ": " + (none ? place : "registro de " + section));
  }
  item.setText(0, item.text(0) + " · " + registers.join(", "));
  item.setToolTip(0, names.join(u'\n'));
}

}  // namespace quorvane::zendria
