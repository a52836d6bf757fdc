#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void LayOutFrmPendientes(Stage& stage) {
  stage.Field("Label1", "cboTEnsenanza");
  stage.Field("Label2", "cboCurso");
  stage.Field("Label3", "cboSeccion");
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
  stage.Fixed();
}

}  // namespace quorvane::qt
