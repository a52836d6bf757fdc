#pragma once

namespace quorvane {

class ComboBox;
class CommandButton;

// The walk over the entries of a grade form's combo box. Selecting one raises the combo's click;
// nothing happens at the ends of the list.

void SeleccionarAnterior(ComboBox& combo);
void SeleccionarSiguiente(ComboBox& combo);

/// Arrow up and arrow down press the buttons of the walk; the key is then taken, so that the grid
/// doesn't get it. Other keys pass.
void PulsarConFlechas(int& keyCode, CommandButton& cmdAnterior, CommandButton& cmdSiguiente);

}  // namespace quorvane
