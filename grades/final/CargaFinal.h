#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "frame/ClaseMateria.h"
#include "frame/Conexiones.h"
#include "grades/final/FormularioFinal.h"  // IWYU pragma: keep (the concept)
#include "grades/final/SegundaFinal.h"
#include "grades/loading/DatosPasoUno.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/locks/MateriasBloqueo.h"
#include "platform/data/Collection.h"
#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;

// How the final grade forms find students, subjects and grades. Final evaluations have a table of
// their own, `EvaluacionActaPte`. Statements fail as they do; nothing is caught.

/// Adds the students whom this user grades: the whole section for profile 0 and the tutor, those of
/// his own subjects for a teacher, none for anybody else.
void AnadirAlumnosFinales(Connection& centro, Collection<cAlumno>& colAlumnos,
                          const DatosPasoUno& seleccion, bool blnTutor);

/// The pending subjects of a student that this user grades; nothing for one who grades none.
std::optional<Recordset> PendientesVisibles(Connection& centro, std::int32_t idAlumno,
                                            const DatosPasoUno& seleccion, bool blnTutor);

/// The same with that subject alone where he sees the whole section; a teacher has all of his.
std::optional<Recordset> PendientesDeMateria(Connection& centro, std::int32_t idAlumno,
                                             std::int32_t codMatDet, const DatosPasoUno& seleccion,
                                             bool blnTutor);

/// Walks those rows and has the form load each that is to be graded; a student who is left without
/// reason to be in the form is taken out. A row whose subject is gone is purged with its grades,
/// and one of the tutor's kind is passed over.
template <FormularioFinal F>
void CargarPendientes(F& form, cAlumno& alumno, Recordset& filas) {
  SegundaFinal segunda(Centro(), form.elegida);
  while (!filas.Eof()) {
    const auto id = filas.Fields("IDAlumnoPte_MatDet").Long();
    const auto clase = ClaseDeMateria(Centro(), filas.Fields("CodMatDet").Long());
    if (!clase) {
      filas.MoveNext();
      PurgarMateria(Centro(), id);
      continue;
    }
    if (ClaseMateria::SeCalifica(*clase) && segunda.Ofrece(id, *clase))
      form.CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
  if (!segunda.Conserva(alumno)) form.colAlumnos.Remove(Key(alumno.IDAlumno));
}

/// Notes the subject of that row among those that the form will lock, and gives its key.
template <FormularioFinal F>
std::int32_t AnotarFila(F& form, const Recordset& fila) {
  const auto codMatDet = fila.Fields("codmatdet").Long();
  AnotarMateria(form.strMateriasBloqueo, codMatDet);
  return codMatDet;
}

/// The subject of that row, of that kind, without grades and names. `idMatDetalle` is what the form
/// keys it by.
std::shared_ptr<cMateria> NuevaMateriaFinal(const Recordset& fila, std::int32_t clase,
                                            std::int32_t idMatDetalle);

/// The grades of a subject of the ordinary kind, with its measure. Error 6 for a measure beyond 8
/// bits, 13 for a text that is no number.
void LeerNotasFinales(Connection& centro, cMateria& materia, std::int32_t evaluacion);

/// The grades of a subject of another kind: grade and observation alone.
void LeerNotasFct(Connection& centro, cMateria& materia, std::int32_t evaluacion);

/// Takes those two from the row that a form has read in its own way.
void TomarNotasFct(Connection& centro, cMateria& materia, const Recordset& notas);

}  // namespace quorvane
