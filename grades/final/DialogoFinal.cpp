#include "grades/final/DialogoFinal.h"

#include "grades/final/RejillaFinal.h"
#include "platform/controls/Animation.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"

namespace quorvane {
namespace {

constexpr std::int32_t kAltoMinimo = 6435;
constexpr std::int32_t kAnchoMinimo = 8640;
constexpr std::int32_t kMargen = 240;
constexpr std::int32_t kAltoLinea = 315;
constexpr std::int32_t kAltoBoton = 375;
constexpr std::int32_t kAnchoBoton = 1215;

void DibujarCabecera(const ControlesFinal& c, const std::string& rotulo, std::int32_t anchoRotulo) {
  c.lblNotaManual[0].Caption(rotulo);
  c.lblNotaManual[0].Place(kMargen, kMargen + 45, anchoRotulo, kMargen);
  const auto izquierda = kMargen + anchoRotulo + 60;
  c.combo.Place(izquierda, kMargen, 4200, kAltoLinea);
  c.cmdAnterior.Caption("<");
  c.cmdAnterior.Place(izquierda + 4320, kMargen, 435, kAltoLinea);
  c.cmdSiguiente.Caption(">");
  c.cmdSiguiente.Place(izquierda + 4815, kMargen, 435, kAltoLinea);
  c.chkPromocion.Caption("Promoción");
  c.chkPromocion.Place(izquierda + 5370, kMargen, 1830, kAltoLinea);
}

void DibujarObservacion(const ControlesFinal& c) {
  c.fraObservacion.Place(kMargen, 0, 5340, 585);
  c.lblNotaManual[1].Caption("Observación del tutor:");
  c.lblNotaManual[1].Place(120, 180, 1860, kMargen);
  c.cboObservacion.Place(2040, 135, 3180, kAltoLinea);
}

}  // namespace

void DibujarFinal(Form& form, const ControlesFinal& controles, const std::string& rotulo,
                  std::int32_t anchoRotulo) {
  form.Caption("Introducción de notas. Paso 2 de 2");
  form.Width(kAnchoMinimo);
  form.Height(kAltoMinimo);
  DibujarCabecera(controles, rotulo, anchoRotulo);
  controles.fraNota.Caption("Notas del Alumno:");
  controles.fraNota.Place(kMargen, 720, 0, 0);
  controles.rtvNotasAlumno.Place(180, 360, 0, 0);
  controles.rtvNotasAlumno.ListColumns(1, kColumnaMedidas);
  DibujarObservacion(controles);
  controles.cmdAceptar.Caption("Aceptar");
  controles.cmdAceptar.Place(0, 0, kAnchoBoton, kAltoBoton);
  controles.cmdAceptar.Default = true;
  controles.cmdCancelar.Caption("Cancelar");
  controles.cmdCancelar.Place(0, 0, kAnchoBoton, kAltoBoton);
  controles.cmdCancelar.Cancel = true;
  controles.fraAniCarga.Caption("Procesando... Espere por favor");
  controles.fraAniCarga.Place(120, 120, 4320, 1140);
  controles.fraAniCarga.Visible(false);
  controles.aniCarga.Place(kMargen, 300, 3840, 720);
  AjustarFinal(form, controles);
}

void AjustarFinal(Form& form, const ControlesFinal& c) {
  if (form.Height() < kAltoMinimo) form.Height(kAltoMinimo);
  if (form.Width() < kAnchoMinimo) form.Width(kAnchoMinimo);
  c.cmdCancelar.Top(form.ScaleHeight() - c.cmdCancelar.Height() - 180);
  c.cmdCancelar.Left(form.ScaleWidth() - c.cmdCancelar.Width() - kMargen);
  c.cmdAceptar.Top(c.cmdCancelar.Top());
  c.cmdAceptar.Left(c.cmdCancelar.Left() - c.cmdAceptar.Width() - 135);
  c.fraObservacion.Top(form.ScaleHeight() - c.fraObservacion.Height() - 180);
  c.fraNota.Height(c.fraObservacion.Top() - c.fraNota.Top() - 120);
  c.fraNota.Width(form.ScaleWidth() - c.fraNota.Left() - kMargen);
  c.rtvNotasAlumno.Height(c.fraNota.Height() - 540);
  c.rtvNotasAlumno.Width(c.fraNota.Width() - 360);
}

}  // namespace quorvane
