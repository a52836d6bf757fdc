#include "grades/dialog/Navegacion.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"

namespace quorvane {

void SeleccionarAnterior(ComboBox& combo) {
  if (combo.ListIndex() > 0) combo.ListIndex(combo.ListIndex() - 1);
}

void SeleccionarSiguiente(ComboBox& combo) {
  if (combo.ListIndex() < combo.ListCount() - 1) combo.ListIndex(combo.ListIndex() + 1);
}

void PulsarConFlechas(int& keyCode, CommandButton& cmdAnterior, CommandButton& cmdSiguiente) {
  constexpr int kArriba = 38;
  constexpr int kAbajo = 40;
  if (keyCode != kArriba && keyCode != kAbajo) return;
  (keyCode == kAbajo ? cmdSiguiente : cmdAnterior).Press();
  keyCode = 0;
}

}  // namespace quorvane
