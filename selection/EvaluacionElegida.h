#pragma once

#include <cstdint>

#include "platform/data/Recordset.h"

namespace quorvane {

class CheckBox;
class Connection;

// What a chosen evaluation is: ordinary or final, of two final ones the second, with a recovery.

/// `Final` of an evaluation that was chosen before; no row when it is gone.
Recordset LeerFinal(Connection& centro, std::int32_t evaluacion);

/// The same of an evaluation that is being chosen: the statement has blanks that the other hasn't.
Recordset LeerFinalAlElegir(Connection& centro, std::int32_t evaluacion);

/// `Final` and `Orden` of an evaluation; no row when it is gone.
Recordset LeerFinalYOrden(Connection& centro, std::int32_t evaluacion);

/// A final evaluation, in a row with its `Orden`, is the second of two.
bool EsSegundaFinal(const Recordset& filaDeFinal);

/// The key of the first final evaluation, for step two. Error 3021 when there is none.
std::int32_t LeerPrimeraFinal(Connection& centro);

/// An evaluation as the section dialogs see it.
struct EvaluacionElegida {
  bool Final = false;
  bool SegundaFinal = false;
  std::int32_t PrimeraFinal = 0;  ///< of a second final: the key of the first
};

/// Error 3021 for an evaluation that is gone, and for a second final without a first.
EvaluacionElegida LeerEvaluacion(Connection& centro, std::int32_t evaluacion);

/// No recovery: the box is cleared and out of sight.
void OcultarRecuperacion(CheckBox& chkRecuperacion);

/// A final evaluation, a marking system without recoveries and a section without follow-up have no
/// recovery. True when there is one: then the box is cleared, and whether it shows is the caller's.
bool AdmiteRecuperacion(Connection& centro, CheckBox& chkRecuperacion, bool blnFinal,
                        bool blnPosibleRecuperacion, std::int32_t seccion);

}  // namespace quorvane
