#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void LayOutFrmAlumnoMateria(Stage& stage) {
  stage.ReadOnly("Label1", "Label2");
  stage.Pictured("cmdSubir", "Subir");
  stage.Pictured("cmdBajar", "Bajar");
  auto* order = new QVBoxLayout;
  order->addWidget(stage["cmdSubir"]);
  order->addWidget(stage["cmdBajar"]);
  order->addStretch(1);

  auto* subjects = new QGridLayout;
  subjects->addWidget(stage["Label3"], 0, 0);
  subjects->addWidget(stage["msgMaterias"], 1, 0);
  subjects->addLayout(order, 1, 1);
  subjects->addLayout(Column(stage, {"cmdAgregar", "cmdEliminar", "cmdPropiedades"}), 1, 2);
  subjects->setColumnStretch(0, 1);
  subjects->setRowStretch(1, 1);
  stage.Page().addLayout(subjects, 1);
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
}

}  // namespace quorvane::qt
