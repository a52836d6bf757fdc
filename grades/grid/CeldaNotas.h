#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

class Connection;
class Form;
class Retivo;

/// Adds each grade that the statement gives to the list of the grid's column. While the widths are
/// to show the longest grade, the column takes the width of the widest, measured in the form's
/// font with room for the list's button.
void LlenarLista(Connection& centro, Retivo& rejilla, int columna, const std::string& sentencia,
                 const Form& form);

/// The data of the entry chosen in the cell just edited; 0 for none.
std::int32_t DatoElegido(const Retivo& rejilla);

}  // namespace quorvane
