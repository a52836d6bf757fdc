#pragma once

#include "selection/PasoDos.h"

namespace quorvane {

class Connection;

/// Tells the final form that this is the second final evaluation, and which was the first.
/// Error 3021 when there is no first.
void MarcarSegundaFinal(Connection& centro, PasoDosFinal& pasoDos);

/// Restores the pointer, closes `entrada`, which the test of the date opened, and shows the form
/// modally.
void MostrarPasoDos(Connection& entrada, PasoDos& pasoDos);

}  // namespace quorvane
