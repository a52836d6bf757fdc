#include "adapters/qt/layouts/StepOneLayout.h"

#include <QBoxLayout>

#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void PlaceSelection(Stage& stage) {
  stage.Field("lblNotamanual1(0)", "cboTipoEnsenanza");
  stage.Field("lblNotamanual1(1)", "cboCursos");
  stage.Field("lblNotamanual1(2)", "cboSecciones");
  stage.Field("lblNotamanual1(3)", "cboEvaluaciones");
  stage.Frame("fraNotaManual1(0)");
  stage.Frame("fraNotaManual1(1)");
}

void PlaceChoice(Stage& stage, const char* list) {
  stage.Field("lblNotamanual1(4)", list, {"cmdAnterior", "cmdSiguiente"});
  stage.Pictured("cmdAnterior", "Anterior");
  stage.Pictured("cmdSiguiente", "Siguiente");
  stage.Frame("fraNotaManual1(2)");
}

void PlaceStepOneEnd(Stage& stage) {
  for (const auto* check : {"chkMostrar", "chkRecuperacion", "chkTodosProm"})
    stage.Page().addWidget(stage[check]);
  stage.Buttons({"cmdNotaManual1(0)", "cmdNotaManual1(1)"});
  stage.Fixed();
}

}  // namespace quorvane::qt
