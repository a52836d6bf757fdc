#include <QWidget>

#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/Control.h"

namespace quorvane::qt {

void LayOutFrmPropMatProf(Stage& stage) {
  // The host shortens both texts to the width that the form gives them.
  for (const auto* text : {"lblMateria", "lblProfesor"})
    stage[text]->setMinimumWidth(Pixels(stage.Window().Model().Find(text)->Width()));
  stage.ReadOnly("Label1", "lblMateria");
  stage.ReadOnly("Label2", "lblProfesor", {"cmdNProfesor", "cmdElimProfesor"});
  stage.Pictured("cmdNProfesor", "Buscar profesor");
  stage.Pictured("cmdElimProfesor", "Quitar profesor");
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
  stage.Fixed();
}

}  // namespace quorvane::qt
