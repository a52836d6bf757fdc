#pragma once

namespace quorvane {

class ComboBox;
class CommandButton;

// The walk over the entries of a combo box, in steps one and two. Selecting one raises the combo's
// click.

/// The entry before the selected one; nothing at the beginning of the list.
void SeleccionarAnterior(ComboBox& combo);
/// The entry behind the selected one, the first when there is none; nothing at the end.
void SeleccionarSiguiente(ComboBox& combo);

/// Arrow up and arrow down press the buttons of the walk; the key is then taken, so that the grid
/// doesn't get it. Other keys pass.
void PulsarConFlechas(int& keyCode, CommandButton& cmdAnterior, CommandButton& cmdSiguiente);

}  // namespace quorvane
