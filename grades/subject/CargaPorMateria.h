#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

/// `CargarMateria` of the forms that walk subjects: gives the student the pending subject of that
/// row and notes it in the list of subjects to lock. Error 3265 for a subject that is neither of
/// kind 1 nor 3: a pending row lacks the column that those are found by.
void CargarMateriaDeFila(cAlumno& alumno, const Recordset& fila, std::int32_t clase,
                         std::int32_t evaluacion, std::string& strMateriasBloqueo);

}  // namespace quorvane
