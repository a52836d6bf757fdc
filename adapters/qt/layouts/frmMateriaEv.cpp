#include "adapters/qt/layouts/DualListLayout.h"
#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void LayOutFrmMateriaEv(Stage& stage) {
  stage.ReadOnly("Label1", "Label2");
  PlaceDualList(stage);
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
}

}  // namespace quorvane::qt
