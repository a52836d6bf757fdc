#pragma once

#include <cstdint>
#include <string>

#include "grades/loading/DatosPasoUno.h"

namespace quorvane {

class Form;
class Retivo;

/// What the statement of a list of grades says besides the scope that step one fixes. Each form
/// and each kind of row has its own; the pieces are SQL text.
struct CondicionesNota {
  bool sinExcepcionales = true;  ///< leaves the exceptional grades out
  std::string materiaYProfesor;  ///< see `DeMateriaYProfesores`; empty for no such condition
  std::string tipoNota;          ///< conditions on `TipoNota`, as "Orden=1 AND Materia=-1"
  std::string clase;             ///< conditions on `TipoMateria` with " AND " behind; or empty
};

/// " AND (CodMateria=0 OR ...) AND (CodPersonal=0 OR ...)": general grades, those of that subject,
/// those of its two teachers. `codMateria` is whatever the form compares `CodMateria` with.
std::string DeMateriaYProfesores(const std::string& codMateria, std::int32_t idProfesor,
                                 std::int32_t idProfesorAsociado);

/// The grades that a cell may take: of the section's model, the course, the evaluation and the
/// marking systems of the type of teaching, each grade general or of exactly that.
std::string SentenciaNotas(const DatosPasoUno& seleccion, const CondicionesNota& condiciones);

/// Adds each grade that the statement gives to the list of the grid's column. While the widths are
/// to show the longest grade, the column takes the width of the widest, measured in the form's
/// font with room for the list's button.
void LlenarLista(Retivo& rejilla, int columna, const std::string& sentencia, const Form& form);

}  // namespace quorvane
