#pragma once

#include <cstdint>
#include <string>

#include "grades/final/FormularioFinal.h"
#include "grades/final/RejillaFinal.h"

namespace quorvane {

// The dialog of the final grade forms: what is drawn, what raises which handler, what follows the
// edges of the form.

namespace MedidasFinal {

inline constexpr std::int32_t kAltoMinimo = 6435;
inline constexpr std::int32_t kAnchoMinimo = 8640;
inline constexpr std::int32_t kMargen = 240;
inline constexpr std::int32_t kAltoLinea = 315;
inline constexpr std::int32_t kAltoBoton = 375;
inline constexpr std::int32_t kAnchoBoton = 1215;

}  // namespace MedidasFinal

/// `Form_Resize`: keeps the form from getting too small, and lets the grid and the buttons follow
/// its bottom and right edges. Nothing happens while it is shrunk to the animation on purpose.
template <FormularioFinal F>
void AjustarFinal(F& form) {
  using namespace MedidasFinal;
  if (form.carga.blnOcultando) return;
  if (form.Height() < kAltoMinimo) form.Height(kAltoMinimo);
  if (form.Width() < kAnchoMinimo) form.Width(kAnchoMinimo);
  form.cmdCancelar.Top(form.ScaleHeight() - form.cmdCancelar.Height() - 180);
  form.cmdCancelar.Left(form.ScaleWidth() - form.cmdCancelar.Width() - kMargen);
  form.cmdAceptar.Top(form.cmdCancelar.Top());
  form.cmdAceptar.Left(form.cmdCancelar.Left() - form.cmdAceptar.Width() - 135);
  auto& fraObservacion = form.fraObservacion[0];
  fraObservacion.Top(form.ScaleHeight() - fraObservacion.Height() - 180);
  form.fraNota.Height(fraObservacion.Top() - form.fraNota.Top() - 120);
  form.fraNota.Width(form.ScaleWidth() - form.fraNota.Left() - kMargen);
  form.rtvNotasAlumno.Height(form.fraNota.Height() - 540);
  form.rtvNotasAlumno.Width(form.fraNota.Width() - 360);
}

/// The line above the grid: the walk, whose caption takes that room, and the promotion.
template <FormularioFinal F>
void DibujarRecorrido(F& form, const std::string& rotulo, std::int32_t anchoRotulo) {
  using namespace MedidasFinal;
  form.lblNotaManual[0].Caption(rotulo);
  form.lblNotaManual[0].Place(kMargen, kMargen + 45, anchoRotulo, kMargen);
  const auto izquierda = kMargen + anchoRotulo + 60;
  Recorrido(form).Place(izquierda, kMargen, 4200, kAltoLinea);
  form.cmdAnterior.Caption("<");
  form.cmdAnterior.Place(izquierda + 4320, kMargen, 435, kAltoLinea);
  form.cmdSiguiente.Caption(">");
  form.cmdSiguiente.Place(izquierda + 4815, kMargen, 435, kAltoLinea);
  form.chkPromocion.Caption("Promoción");
  form.chkPromocion.Place(izquierda + 5370, kMargen, 1830, kAltoLinea);
}

/// The grid, whose columns edit through lists, and below it the observation.
template <FormularioFinal F>
void DibujarNotasFinales(F& form) {
  using namespace MedidasFinal;
  form.fraNota.Caption("Notas del Alumno:");
  form.fraNota.Place(kMargen, 720, 0, 0);
  form.rtvNotasAlumno.Place(180, 360, 0, 0);
  form.rtvNotasAlumno.ListColumns(1, kColumnaMedidas);
  form.fraObservacion[0].Place(kMargen, 0, 5340, 585);
  form.lblNotaManual[1].Caption("Observación del tutor:");
  form.lblNotaManual[1].Place(120, 180, 1860, kMargen);
  form.cboObservacion.Place(2040, 135, 3180, kAltoLinea);
}

/// The dialog as it is drawn. `rotulo` is the caption of the combo box that the form walks.
template <FormularioFinal F>
void DibujarFinal(F& form, const std::string& rotulo, std::int32_t anchoRotulo) {
  using namespace MedidasFinal;
  form.Caption("Introducción de notas. Paso 2 de 2");
  form.Width(kAnchoMinimo);
  form.Height(kAltoMinimo);
  DibujarRecorrido(form, rotulo, anchoRotulo);
  DibujarNotasFinales(form);
  form.cmdAceptar.Caption("Aceptar");
  form.cmdAceptar.Place(0, 0, kAnchoBoton, kAltoBoton);
  form.cmdAceptar.Default = true;
  form.cmdCancelar.Caption("Cancelar");
  form.cmdCancelar.Place(0, 0, kAnchoBoton, kAltoBoton);
  form.cmdCancelar.Cancel = true;
  form.fraAniCarga.Caption("Procesando... Espere por favor");
  form.fraAniCarga.Place(120, 120, 4320, 1140);
  form.fraAniCarga.Visible(false);
  form.aniCarga.Place(kMargen, 300, 3840, 720);
  AjustarFinal(form);
}

/// Has the controls that all of the forms have raise the handlers that bear their names.
template <FormularioFinal F>
void ConectarFinal(F& form) {
  form.LeaveBy(form.cmdCancelar);
  form.cmdAnterior.Click = [&form] { form.cmdAnterior_Click(); };
  form.cmdSiguiente.Click = [&form] { form.cmdSiguiente_Click(); };
  form.cmdAceptar.Click = [&form] { form.cmdAceptar_Click(); };
  form.cmdCancelar.Click = [&form] { form.cmdCancelar_Click(); };
  form.rtvNotasAlumno.InicioEdicion = [&form] { form.rtvNotasAlumno_InicioEdicion(); };
  form.rtvNotasAlumno.FinEdicion = [&form] { form.rtvNotasAlumno_FinEdicion(); };
  form.rtvNotasAlumno.CambioAncho = [&form] { form.rtvNotasAlumno_CambioAncho(); };
  form.cboObservacion.Click = [&form] { form.cboObservacion_Click(); };
  form.chkPromocion.Click = [&form] { form.chkPromocion_Click(); };
}

}  // namespace quorvane
