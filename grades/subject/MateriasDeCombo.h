#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/Collection.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;
class Retivo;

/// An entry of the list of subjects behind the combo box of a form that walks subjects.
struct MateriaDeCombo {
  std::int32_t CodAsociada = 0;  ///< 0 for a subject; above 0 it would be an objective of it
  std::int32_t IDMatDet = 0;     ///< `MateriaDetalles`.`IDMateriaDetalles`
  std::string Nombre;
  std::uint8_t Orden = 0;  ///< of the pending subject where it was first met
};

/// The subjects of all students, each once, in the order in which they are met.
std::vector<MateriaDeCombo> ReunirMaterias(const Collection<cAlumno>& colAlumnos);

/// Adds a row for each student who has that subject: his name, his grades unless `sinNotas`, and
/// his key in the last column. Error 438 for an objective, which a student can't hold.
void LlenarFilas(Connection& centro, Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                 const MateriaDeCombo& entrada, bool sinNotas);

/// The student of the grid's current row, by its last column. Error 5 when it isn't one's.
const cAlumno& AlumnoDeFila(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos);

/// That subject of the student of the current row. Error 5 when he doesn't have it, 438 for an
/// objective, which a subject can't hold.
cMateria& MateriaDeFila(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                        const MateriaDeCombo& entrada);

}  // namespace quorvane
