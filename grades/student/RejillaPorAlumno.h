#pragma once

#include <cstdint>

#include "frame/Conexiones.h"
#include "grades/dialog/FormularioNotas.h"  // IWYU pragma: keep
#include "grades/loading/Alumnos.h"

namespace quorvane {

class Connection;

// The walk over students, with the subjects of each in the rows. Behind the grades a row has two
// columns: the subject that it hangs from, "0" as a subject itself, and its key.

inline constexpr int kColumnasPorAlumno = 8;
inline constexpr int kOcultasPorAlumno = 2;
inline constexpr std::int32_t kAnchoMateria = 2000;

/// Puts the students into the combo box and selects the first, which clicks it. Nothing happens
/// without any.
template <NotasPorAlumno F>
void LlenarRecorrido(F& form) {
  if (form.colAlumnos.Count() == 0) return;
  form.cboAlumnos.Clear();
  for (const auto& alumno : form.colAlumnos)
    form.cboAlumnos.AddItem(AlumnoConOrden(Centro(), alumno->IDAlumno), alumno->IDAlumno);
  form.cboAlumnos.ListIndex(0);
}

/// The student of the combo box. Error 381 with none selected, 5 when he isn't there.
template <NotasPorAlumno F>
cAlumno& AlumnoActual(const F& form) {
  return *form.colAlumnos[Key(form.cboAlumnos.SelectedData())];
}

/// The subject of a student by the keys in the current row. Error 5 when he doesn't have it, 438
/// for an objective, which a subject can't hold.
cMateria& MateriaDeFila(const Retivo& rejilla, const cAlumno& alumno);

/// Adds a row for each subject of the student: its name, its grades unless `sinNotas`, its keys.
void LlenarFilas(Connection& centro, Retivo& rejilla, const cAlumno& alumno, bool sinNotas);

}  // namespace quorvane
