#include "adapters/qt/layouts/DualListLayout.h"
#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void LayOutFrmAlumnos(Stage& stage) {
  PlaceDualList(stage);
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
}

}  // namespace quorvane::qt
