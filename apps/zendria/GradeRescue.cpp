#include "apps/zendria/GradeRescue.h"

#include <utility>

#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/OwnFile.h"
#include "apps/zendria/School.h"
#include "apps/zendria/StoredGrades.h"
#include "platform/controls/Form.h"

namespace quorvane::zendria {

GradeRescue::GradeRescue(qt::QtFrontEnd& screen, QString folder)
    : watched_(std::make_shared<Watched>()), folder_(std::move(folder)) {
  SweepUnfinishedFiles(folder_);
  screen.EditEnding = [watched = watched_](const Form& form, const Retivo& grid, int entry) {
    if (auto edit = ReadGradeEdit(form, grid, entry)) watched->edits.Add(*std::move(edit));
  };
  screen.FormUnloading = [watched = watched_](const Form& form) {
    watched->edits.Drop(form.Name());
    watched->saving.Clear();
  };
}

void GradeRescue::Begin() { *watched_ = {}; }

void GradeRescue::Told(const std::string& statement) { watched_->saving.Told(statement); }

std::optional<RescuedGrades> GradeRescue::Rescue(const School& school,
                                                 const RescueHeading& heading) {
  const auto [edits, saving] = std::exchange(*watched_, {});
  const auto changed = edits.Changed();
  if (changed.empty()) return std::nullopt;
  const BusyCursor busy;
  StoredGrades stored([&school] { return school.OpenAnew(); });
  std::vector<GradeCell> lost;
  auto certain = true;
  for (const auto& cell : changed) {
    const auto holds = stored.Holds(edits.Sheet(), cell);
    certain = certain && holds.has_value();
    // A server that can't be asked still has what it said it wrote; a file may be another now.
    if (!holds.value_or(school.IsOnServer() && saving.Wrote(edits.Sheet(), cell)))
      lost.push_back(cell);
  }
  if (lost.empty()) return std::nullopt;

  RescuedGrades rescued{lost.size(), RescueText(heading, edits.Sheet(), lost, certain), {}};
  const auto name = RescueFileName(heading.when, school.Name());
  const auto content = rescued.text.toUtf8();
  auto file = WriteOwnFile(folder_, name, content);
  if (!file) file = WriteOwnTemporaryFile(name, content);
  rescued.file = file.value_or(QString());
  return rescued;
}

}  // namespace quorvane::zendria
