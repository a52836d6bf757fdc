#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"

namespace quorvane::qt {

void LayOutFrmMateriaPend(Stage& stage) {
  stage.Field("Label1", "cboCurso");
  stage.Field("Label3", "cboSeccion");
  stage.Field("Label2", "cboMateria");
  stage.Buttons({"cmdAceptar", "cmdCancelar"});
  stage.Fixed();
}

}  // namespace quorvane::qt
