#pragma once

#include <cstdint>

#include "platform/data/Sql.h"
#include "register/cMateria.h"

namespace quorvane {

class Connection;

/// Saves the grades of a subject and moves `UltimaEvaluada`, the mark of its last graded
/// evaluation, unless a later evaluation holds it. Later and earlier go by `CodNumEvaluacion`.
///
/// A grade that is taken away gives the mark to the first earlier evaluated row that the database
/// delivers, and leaves it on this row too if it was here. `marcar` is how the caller writes the
/// statement by which this evaluation takes the mark: the evaluation, the subject's row.
/// Error 3021 for a grade that is gone.
void GuardarConMarca(Connection& centro, const cMateria& materia, std::int32_t evaluacion,
                     SqlText<2> marcar);

}  // namespace quorvane
