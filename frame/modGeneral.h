#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

class Connection;

/// The key of a new row: the largest, for which that statement asks, plus one; 1 when there is
/// none. Nothing is reserved: take it right before the INSERT. `conexionBorrado` isn't used. Fails
/// as the statement does.
std::int32_t ObtenerSiguienteId(Connection& conexion, Connection* conexionBorrado,
                                const std::string& sentenciaMaximo);

/// Written by the step-one forms, read by the grids of the step-two forms: columns grow to show
/// their longest grade.
extern bool gblnMostrarAnchoNotas;

}  // namespace quorvane
