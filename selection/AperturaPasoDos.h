#pragma once

#include <string>

#include "selection/PasoDos.h"

namespace quorvane {

class ComboBox;

/// What step two bears as `mstrCaption`: the texts of the three lists, parted by blanks.
std::string TituloPasoDos(const ComboBox& tipo, const ComboBox& curso, const ComboBox& seccion);

/// Tells the final form that this is the second final evaluation, and which was the first.
/// Error 3021 when there is no first.
void MarcarSegundaFinal(PasoDosFinal& pasoDos);

/// Restores the pointer, closes `conLocalAppEntrada` and shows the form modally.
void MostrarPasoDos(PasoDos& pasoDos);

}  // namespace quorvane
