#pragma once

#include <memory>

#include "register/cAlumno.h"

namespace quorvane {

/// A copy of the student down to his evaluations, to be changed without touching him. The copied
/// subjects have `codCurso` 0: only new subjects are inserted, and these have 0 anyway.
std::shared_ptr<cAlumno> CopiarAlumno(const cAlumno& origen);

}  // namespace quorvane
