#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "grades/loading/DatosPasoUno.h"
#include "grades/loading/MateriasPendientes.h"
#include "platform/Collection.h"
#include "platform/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

// How the final grade forms find students, subjects and grades. Final evaluations have a table of
// their own, `EvaluacionActaPte`. Statements fail as they do; nothing is caught.

inline constexpr std::int32_t kClaseOrdinaria = 1;  ///< `Fct` is True for all others but 3
inline constexpr std::int32_t kClaseValores = 3;    ///< not graded here
inline constexpr std::int32_t kClaseFct = 4;        ///< kept in the second final in any case

/// Which of the two final evaluations this is, as step one has written it.
struct FinalElegida {
  bool mblnFinalSeptiembre = false;        ///< the second
  std::int32_t mlngIdEvaluacionJunio = 0;  ///< then, the first
};

/// Adds the students whom this user grades: the whole section for profile 0 and the tutor, those of
/// his own subjects for a teacher, none for anybody else.
void AnadirAlumnosFinales(Collection<cAlumno>& colAlumnos, const DatosPasoUno& seleccion,
                          bool blnTutor);

/// The pending subjects of a student that this user grades; nothing for one who grades none.
/// `condicion` goes before the others where he sees the whole section, as "codmatdet=5 AND "; the
/// statement for a teacher has no place for it.
std::optional<Recordset> PendientesVisibles(std::int32_t idAlumno, const DatosPasoUno& seleccion,
                                            bool blnTutor, const std::string& condicion = {});

/// Walks those rows and calls `cargar`, with the row and the kind of its subject, for each that is
/// to be graded. A row whose subject is gone is purged with its grades, one of the tutor's kind is
/// passed over, and so is, in the second final evaluation, one that the first passed or left
/// without a grade.
///
/// True when a row speaks for keeping the student in the second final evaluation: one that is
/// graded, but also one that is out for having no grade in the first.
bool RecorrerPendientes(Recordset& filas, const FinalElegida& elegida,
                        const std::function<void(const Recordset&, std::int32_t)>& cargar);

/// The subject of that row, without grades and names. `idMatDetalle` is what the form keys it by.
std::shared_ptr<cMateria> NuevaMateriaFinal(const Recordset& fila, std::int32_t idMatDetalle);

/// The grades of a subject of the ordinary kind, with its measure. Error 6 for a measure beyond 8
/// bits, 13 for a text that is no number.
void LeerNotasFinales(cMateria& materia, std::int32_t evaluacion);

/// The grades of a subject of another kind: grade and observation alone. `tabla` and `clave`, the
/// column that is compared with `id`, are the form's.
void LeerNotasFct(cMateria& materia, const std::string& tabla, const std::string& clave,
                  std::int32_t evaluacion, std::int32_t id);

/// Takes ids, teachers and name from the subject as it was taught.
void TomarDetalles(cMateria& materia, const DetallesMateria& detalles);

}  // namespace quorvane
