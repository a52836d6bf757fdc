#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/layouts/StepOneLayout.h"

namespace quorvane::qt {

void LayOutFrmNotaManual1(Stage& stage) {
  PlaceSelection(stage);
  PlaceStepOneEnd(stage);
}

}  // namespace quorvane::qt
