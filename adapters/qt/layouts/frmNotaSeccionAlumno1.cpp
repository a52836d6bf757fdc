#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/layouts/StepOneLayout.h"

namespace quorvane::qt {

void LayOutFrmNotaSeccionAlumno1(Stage& stage) {
  PlaceSelection(stage);
  PlaceChoice(stage, "cboMateria");
  PlaceStepOneEnd(stage);
}

}  // namespace quorvane::qt
