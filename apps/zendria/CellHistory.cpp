#include "apps/zendria/CellHistory.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/GradeCell.h"
#include "apps/zendria/HistoryDialog.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Retivo.h"

namespace quorvane::zendria {
namespace {

/// The table that a menu is asked for, with the keyboard or over its cells.
QTableView* TableOf(QObject* watched) {
  if (auto* const table = qobject_cast<QTableView*>(watched)) return table;
  auto* const table = qobject_cast<QTableView*>(watched->parent());
  return table != nullptr && table->viewport() == watched ? table : nullptr;
}

/// What the current cell of the grid is the grade of.
std::optional<GradeEdit> CellOf(const Form& form, const Retivo& grid) {
  try {
    return ReadGradeEdit(form, grid, -1);
  } catch (const RuntimeError&) {
    return std::nullopt;  // a heading, or a cell that the form itself doesn't know
  }
}

}  // namespace

CellHistory::CellHistory(const qt::QtFrontEnd& screen, std::function<Connection*()> school)
    : screen_(screen), school_(std::move(school)) {
  qApp->installEventFilter(this);
}

bool CellHistory::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) return false;
  auto* const table = TableOf(watched);
  return table != nullptr && Offer(*table, static_cast<QContextMenuEvent*>(event)->globalPos());
}

bool CellHistory::Offer(QTableView& table, const QPoint& place) {
  auto* const window = screen_.ActiveWindow();
  if (window == nullptr || table.window() != window || screen_.Busy()) return false;
  const auto& form = window->Model();
  const auto* const grid = dynamic_cast<const Retivo*>(form.Find(table.objectName().toStdString()));
  if (grid == nullptr) return false;
  const auto edit = CellOf(form, *grid);
  if (!edit) return false;
  auto* const menu = new QMenu(window);
  menu->setObjectName("menuNota");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  HistoryFilter filter;
  filter.pending = edit->cell.pending;
  filter.evaluation = edit->sheet.evaluacion;
  const auto title = QString::fromStdString(edit->cell.studentText + ", " + edit->cell.subjectText);
  QObject::connect(menu->addAction("&Historial de esta nota…"), &QAction::triggered, window,
                   [school = school_, filter, title, window] {
                     if (auto* const connection = school())
                       HistoryDialog(*connection, filter, title, window).exec();
                   });
  menu->popup(place);
  return true;
}

}  // namespace quorvane::zendria
