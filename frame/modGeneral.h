#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

class Connection;

/// The key of a new row: the largest, which the statement asks for, plus one; 1 when there is none.
/// Nothing is reserved: take it right before the INSERT. Fails as the statement does.
std::int32_t SiguienteId(Connection& conexion, const std::string& maximo);

/// The same for a column of a table. `conexionBorrado` isn't used.
std::int32_t ObtenerSiguienteId(Connection& conexion, Connection* conexionBorrado,
                                const std::string& tabla, const std::string& campo);

/// Written by the step-one forms, read by the grids of the step-two forms: columns grow to show
/// their longest grade.
extern bool gblnMostrarAnchoNotas;

}  // namespace quorvane
