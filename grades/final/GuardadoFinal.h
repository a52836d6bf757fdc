#pragma once

#include <cstdint>

#include "frame/Conexiones.h"
#include "grades/dialog/Pantalla.h"
#include "grades/final/FormularioFinal.h"  // IWYU pragma: keep (the concept)
#include "platform/host/FrontEnd.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;

/// Writes a subject's grade, observation and measure of that final evaluation, and sees to the mark
/// `UltimaEvaluada`: it goes to this evaluation when there is a grade, unless a later one, by its
/// id, holds it; when the grade has been taken away, it goes back to an earlier evaluation with a
/// grade, to whichever the database gives first. A negative grade counts as none.
void GuardarMateriaFinal(Connection& centro, const cMateria& materia, std::int32_t evaluacion);

/// Saves all subjects of a student.
template <FormularioFinal F>
void GuardarAlumno(const F& form, const cAlumno& alumno) {
  for (const auto& materia : alumno.colMateria)
    GuardarMateriaFinal(Centro(), *materia, form.PasoUno().evaluacion);
}

/// After the last student: the pointer rests, and the form closes as when it is cancelled.
template <FormularioFinal F>
void TerminarGuardado(F& form) {
  Pantalla().MousePointer(Pointer::Default);
  form.cmdCancelar_Click();
}

}  // namespace quorvane
