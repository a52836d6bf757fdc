#pragma once

#include <cstdint>

#include "platform/data/Recordset.h"

namespace quorvane {

class Connection;

// Objectives that hang from a subject, in the host's main grade book. No form shows them.

/// The objectives of a student in that evaluation under that subject.
Recordset LeerObjetivos(Connection& centro, std::int32_t evaluacion, std::int32_t idAlumno,
                        std::int32_t codMateria);

/// The same with the columns by name, as one of the forms asks.
Recordset LeerColumnasDeObjetivos(Connection& centro, std::int32_t evaluacion,
                                  std::int32_t idAlumno, std::int32_t codMateria);

/// Reads the grades of each objective, once for those that repeat in a row, and keeps nothing.
/// With `recuperar` only rows that carry a recovery are read.
void RecorrerObjetivos(Connection& centro, Recordset objetivos, std::int32_t evaluacion,
                       bool recuperar);

}  // namespace quorvane
