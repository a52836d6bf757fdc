#include "apps/zendria/CellHistory.h"

#include <QMenu>
#include <optional>
#include <utility>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/GradeCell.h"
#include "apps/zendria/HistoryDialog.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Retivo.h"

namespace quorvane::zendria {
namespace {

/// What the current cell of the grid is the grade of.
std::optional<GradeEdit> CellOf(const Form& form, const Retivo& grid) {
  try {
    return ReadGradeEdit(form, grid, -1);
  } catch (const RuntimeError&) {
    return std::nullopt;  // a heading, or a cell that the form itself doesn't know
  }
}

void Offer(QMenu& menu, qt::FormWindow& window, const Retivo& grid,
           const std::function<Connection*()>& school) {
  const auto edit = CellOf(window.Model(), grid);
  if (!edit) return;
  HistoryFilter filter;
  filter.pending = edit->cell.pending;
  filter.evaluation = edit->sheet.evaluacion;
  const auto title = QString::fromStdString(edit->cell.studentText + ", " + edit->cell.subjectText);
  auto* const action = menu.addAction("&Historial de esta nota…");
  action->setObjectName("historialDeNota");
  // Behind the menu's own event, which a dialog would hold up.
  QObject::connect(
      action, &QAction::triggered, &window,
      [school, filter, title, &window] {
        if (window.FrontEnd().Leaving()) return;
        if (auto* const connection = school())
          HistoryDialog(*connection, filter, title, &window).exec();
      },
      Qt::QueuedConnection);
}

}  // namespace

CellHistory::CellHistory(qt::QtFrontEnd& screen, std::function<Connection*()> school) {
  screen.GridMenuOpening = [before = std::move(screen.GridMenuOpening), school = std::move(school)](
                               QMenu& menu, qt::FormWindow& window, const Control& control) {
    if (before) before(menu, window, control);
    if (const auto* const grid = dynamic_cast<const Retivo*>(&control))
      Offer(menu, window, *grid, school);
  };
}

}  // namespace quorvane::zendria
