#include "apps/zendria/OversightMenu.h"

#include "apps/escuela/state/MayGrade.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/GradeRoute.h"
#include "apps/zendria/HistoryDialog.h"
#include "apps/zendria/ImportDialog.h"
#include "apps/zendria/ReportDialog.h"
#include "apps/zendria/School.h"
#include "apps/zendria/StateDialog.h"
#include "apps/zendria/User.h"

namespace quorvane::zendria {

OversightMenu::OversightMenu(QWidget& window) : window_(window) {
  Add("estadoEvaluacion", "&Estado de la evaluación…", QKeySequence("Ctrl+E"),
      [this](auto& school, const auto& user, auto centre) { ShowState(school, user, centre); });
  Add("historialNotas", "&Historial de notas…", QKeySequence("Ctrl+H"),
      [this](auto& school, const auto& user, auto) {
        if (const auto staff = WhoGrades(school, user))
          HistoryDialog(school.Own(), *staff, &window_).exec();
      });
  Add("informePendientes", "&Informe de pendientes…", QKeySequence("Ctrl+I"),
      [this](auto& school, const auto& user, auto) {
        if (const auto staff = WhoGrades(school, user))
          ReportDialog(school.Own(), school.Name(), *staff, &window_).exec();
      });
  Add("importarRegistro", "I&mportar el registro…", {},
      [this](auto& school, const auto&, auto) { ImportDialog(school.Address(), &window_).exec(); });
}

void OversightMenu::Add(const char* name, const QString& text, const QKeySequence& keys,
                        const Work& work) {
  auto* const action = new QAction(text, &window_);
  action->setObjectName(name);
  action->setShortcut(keys);
  QObject::connect(action, &QAction::triggered, &window_, [this, work] { OnSchool(work); });
  actions_.push_back(action);
}

void OversightMenu::AddTo(QMenu& menu) {
  for (auto* const action : actions_) menu.addAction(action);
}

void OversightMenu::Enable(bool open, const User& user) {
  for (auto* const action : actions_) action->setEnabled(open);
  actions_.back()->setEnabled(open && (user.profile == 0 || user.administrator));
}

std::optional<std::int32_t> OversightMenu::WhoGrades(School& school, const User& user) {
  if (user.profile == 0) return 0;
  std::optional<std::int32_t> staff;
  Attempt(&window_, [&] {
    const auto own = StaffOf(school.Own(), user.id);
    staff = own == 0 ? kNobody : own;
  });
  return staff;
}

void OversightMenu::ShowState(School& school, const User& user, std::int32_t centre) {
  StateDialog::Viewer viewer;
  if (!Attempt(&window_, [&] { viewer.staff = StaffOf(school.Own(), user.id); })) return;
  viewer.seesAll = user.profile == 0;
  viewer.centre = centre;
  std::optional<GradeRoute> chosen;
  {
    StateDialog dialog(school.Own(), viewer, &window_);
    dialog.exec();
    chosen = dialog.Chosen();
  }
  if (chosen && OpenRoute) OpenRoute(*chosen);
}

}  // namespace quorvane::zendria
