#pragma once

#include <cstdint>

#include "platform/data/Recordset.h"

namespace quorvane {

class CheckBox;

/// "SELECT Final ..." of an evaluation that was chosen before; no row when it is gone.
Recordset LeerFinal(std::int32_t evaluacion);

/// `Final` and `Orden` of an evaluation; no row when it is gone.
Recordset LeerFinalYOrden(std::int32_t evaluacion);

/// Of two final evaluations the second has this `Orden`.
inline constexpr std::int32_t kOrdenSegundaFinal = 2;

/// An evaluation as the section dialogs see it.
struct EvaluacionElegida {
  bool Final = false;
  bool SegundaFinal = false;
  std::int32_t PrimeraFinal = 0;  ///< of a second final: the key of the first
};

/// Error 3021 for an evaluation that is gone, and for a second final without a first.
EvaluacionElegida LeerEvaluacion(std::int32_t evaluacion);

/// No recovery: the box is cleared and out of sight.
void OcultarRecuperacion(CheckBox& chkRecuperacion);

/// A final evaluation, a marking system without recoveries and a section without follow-up have no
/// recovery. True when there is one: then the box is cleared, and whether it shows is the caller's.
bool AdmiteRecuperacion(CheckBox& chkRecuperacion, bool blnFinal, bool blnPosibleRecuperacion,
                        std::int32_t seccion);

/// The session's user sees the whole of that section: he is its tutor, or his profile is 0 or less.
bool EsTutor(std::int32_t seccion);

}  // namespace quorvane
