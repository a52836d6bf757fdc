#include "grades/subject/MateriasDeCombo.h"

#include <algorithm>

#include "grades/NotasOrdinarias.h"
#include "grades/loading/Alumnos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Retivo.h"

namespace quorvane {

std::vector<MateriaDeCombo> ReunirMaterias(const Collection<cAlumno>& colAlumnos) {
  std::vector<MateriaDeCombo> materias;
  for (const auto& alumno : colAlumnos)
    for (const auto& materia : alumno->colMateria) {
      const auto repetida = std::any_of(materias.begin(), materias.end(), [&](const auto& entrada) {
        return entrada.IDMatDet == materia->IDMatDetalle;
      });
      if (!repetida)
        materias.push_back({0, materia->IDMatDetalle, materia->Nombre, materia->Orden});
    }
  return materias;
}

void LlenarFilas(Connection& centro, Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                 const MateriaDeCombo& entrada, bool sinNotas) {
  for (const auto& alumno : colAlumnos) {
    if (entrada.CodAsociada > 0) throw RuntimeError(ErrorNumber::MissingMember);
    if (!alumno->colMateria.Contains(Key(entrada.IDMatDet))) continue;
    const auto& materia = *alumno->colMateria[Key(entrada.IDMatDet)];
    rejilla.AddItem(AlumnoConOrden(centro, alumno->IDAlumno));
    const auto fila = rejilla.Rows() - 1;
    if (!sinNotas) EscribirNotas(centro, rejilla, fila, materia);
    rejilla.TextMatrix(fila, rejilla.Cols() - 1, std::to_string(alumno->IDAlumno));
  }
}

const cAlumno& AlumnoDeFila(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos) {
  return *colAlumnos[rejilla.TextMatrix(rejilla.Row(), rejilla.Cols() - 1)];
}

cMateria& MateriaDeFila(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                        const MateriaDeCombo& entrada) {
  const auto& materia = AlumnoDeFila(rejilla, colAlumnos).colMateria[Key(entrada.IDMatDet)];
  if (entrada.CodAsociada > 0) throw RuntimeError(ErrorNumber::MissingMember);
  return *materia;
}

}  // namespace quorvane
