#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/layouts/StepOneLayout.h"

namespace quorvane::qt {

void LayOutFrmNotaMateria1(Stage& stage) {
  PlaceSelection(stage);
  PlaceStepOneEnd(stage);
}

}  // namespace quorvane::qt
