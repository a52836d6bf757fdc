#include <QGridLayout>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/views/TabStripBox.h"
#include "adapters/qt/window/FormWindow.h"

namespace quorvane::qt {
namespace {

/// A page of the tabs: a list under its label, and what can be done with it on its right.
QWidget* ListPage(const Stage& stage, std::string_view frame, std::string_view label,
                  std::string_view list, QBoxLayout* buttons) {
  auto* page = stage[frame];
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(stage[label], 0, 0);
  grid->addWidget(stage[list], 1, 0);
  grid->addLayout(buttons, 1, 1);
  grid->setRowStretch(1, 1);
  grid->setColumnStretch(0, 1);
  return page;
}

}  // namespace

void LayOutFrmAlumnoPendiente(Stage& stage) {
  auto* tabs = static_cast<TabStripBox*>(stage["TabDatos"]);
  auto* pane = new QVBoxLayout(tabs->Pane());
  pane->addWidget(ListPage(stage, "fraTab(0)", "Label1", "msgAlumnos",
                           Column(stage, {"cmdListar", "cmdPropiedades"})));
  pane->addWidget(
      ListPage(stage, "fraTab(1)", "Label2", "msgMaterias", Column(stage, {"cmdPropMat"})));
  // The page that lies behind is to have its room as well.
  const auto margins = pane->contentsMargins();
  const auto wanted = stage["fraTab(1)"]->sizeHint().width() + margins.left() + margins.right();
  const auto most = stage.Window().screen()->availableSize().width() * 4 / 5;
  tabs->Pane()->setMinimumWidth(std::min(wanted, most));
  stage.Page().addWidget(tabs, 1);
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
}

}  // namespace quorvane::qt
