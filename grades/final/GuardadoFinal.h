#pragma once

#include <cstdint>

#include "register/cMateria.h"

namespace quorvane {

/// Writes a subject's grade, observation and measure of that final evaluation, and sees to the mark
/// `UltimaEvaluada`: it goes to this evaluation when there is a grade, unless a later one, by its
/// id, holds it; when the grade has been taken away, it goes back to an earlier evaluation with a
/// grade, to whichever the database gives first. A negative grade counts as none.
void GuardarMateriaFinal(const cMateria& materia, std::int32_t evaluacion);

}  // namespace quorvane
