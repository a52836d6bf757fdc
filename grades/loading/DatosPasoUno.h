#pragma once

#include <cstdint>

#include "selection/FormularioPasoUno.h"

namespace quorvane {

/// What step one has fixed: the item data of its selected entries and its public fields. A step-two
/// form takes it afresh whenever it needs it, since step one stays loaded behind it and is the only
/// place where it is kept.
struct DatosPasoUno {
  std::int32_t tipo = 0;        ///< `IDTipoEnsenanza`
  std::int32_t curso = 0;       ///< the students' present course, not that of a pending subject
  std::int32_t seccion = 0;     ///< `IDSeccion`
  std::int32_t evaluacion = 0;  ///< `IDNumEvaluacion`
  std::int16_t gIDPersonal = 0;
  bool blnRecuperar = false;
};

/// The selection of a step-one form. Error 381 while one of the combo boxes has no selected
/// entry.
template <FormularioPasoUno F>
DatosPasoUno DatosPasoUnoDe(const F& pasoUno) {
  DatosPasoUno seleccion;
  seleccion.tipo = pasoUno.cboTipoEnsenanza.SelectedData();
  seleccion.curso = pasoUno.cboCursos.SelectedData();
  seleccion.seccion = pasoUno.cboSecciones.SelectedData();
  seleccion.evaluacion = pasoUno.cboEvaluaciones.SelectedData();
  seleccion.gIDPersonal = pasoUno.gIDPersonal;
  seleccion.blnRecuperar = pasoUno.blnRecuperar;
  return seleccion;
}

}  // namespace quorvane
