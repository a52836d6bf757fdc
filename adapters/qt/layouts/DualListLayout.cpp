#include "adapters/qt/layouts/DualListLayout.h"

#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void PlaceDualList(Stage& stage) {
  auto* moves = new QVBoxLayout;
  moves->setSpacing(6);
  moves->addStretch(1);
  moves->addWidget(stage["cmdAgregarUno"]);
  moves->addWidget(stage["cmdAgregarTodos"]);
  moves->addSpacing(16);
  moves->addWidget(stage["cmdEliminarUno"]);
  moves->addWidget(stage["cmdEliminarTodos"]);
  moves->addStretch(1);

  auto* lists = new QGridLayout;
  lists->setHorizontalSpacing(12);
  lists->addWidget(stage["lblDisponibles"], 0, 0);
  lists->addWidget(stage["lstSeleccionados"], 1, 0);
  lists->addLayout(moves, 1, 1);
  lists->addWidget(stage["lblSeleccionadas"], 0, 2);
  lists->addWidget(stage["lstDisponibles"], 1, 2);
  lists->setColumnStretch(0, 1);
  lists->setColumnStretch(2, 1);
  lists->setRowStretch(1, 1);
  stage.Page().addLayout(lists, 1);
}

}  // namespace quorvane::qt
