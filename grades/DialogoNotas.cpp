#include "grades/DialogoNotas.h"

#include "platform/controls/Animation.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {
namespace {

constexpr std::int32_t kAltoMinimo = 6465;
constexpr std::int32_t kAnchoMinimo = 9300;

void DibujarCabecera(const ControlesNotas& controles, const std::string& rotulo,
                     std::int32_t anchoRotulo) {
  constexpr std::int32_t kMargen = 240;
  controles.lblNotaManual[0].Caption(rotulo);
  controles.lblNotaManual[0].Place(kMargen, 285, anchoRotulo, 240);
  const auto izquierda = kMargen + anchoRotulo + 60;
  controles.combo.Place(izquierda, 240, 5100, 315);
  controles.cmdAnterior.Caption("<");
  controles.cmdAnterior.Place(izquierda + 5220, 240, 435, 315);
  controles.cmdSiguiente.Caption(">");
  controles.cmdSiguiente.Place(izquierda + 5715, 240, 435, 315);
}

void DibujarRejillas(const ControlesNotas& controles) {
  controles.rtvNotasAlumno.Place(180, 360, 7620, 3005);
  controles.rtvNotasAlumno.Cols(8);
  controles.rtvNotasAlumno.ListColumns(1, 5);
  controles.rtvNotasTutor.Place(180, 300, 7620, 2115);
  controles.rtvNotasTutor.Cols(4);
  controles.rtvNotasTutor.ListColumns(1, 2);
}

void DibujarPaneles(const ControlesNotas& controles) {
  controles.tabNotaManual.AddTab("Notas");
  controles.tabNotaManual.Place(240, 720, 8700, 4545);
  for (auto& panel : controles.fraNotaManual) panel.Place(420, 1110, 8340, 4085);
  controles.fraNotaManual[1].Visible(false);
  controles.fraNota.Caption("Notas del Alumno:");
  controles.fraNota.Place(180, 270, 7980, 3545);
  controles.fraNotaTutor.Caption("Notas y Observaciones del Alumno:");
  controles.fraNotaTutor.Place(180, 270, 7980, 3545);

  controles.fraObservacion.Place(180, 2475, 4740, 930);
  controles.lblNotaManual[1].Caption("Observación:");
  controles.lblNotaManual[1].Place(120, 210, 4500, 240);
  controles.cboObservacion.Place(120, 480, 4500, 315);

  controles.fraAusencia.Place(5080, 2475, 2700, 930);
  controles.lblNotaManual[2].Caption("Ausencias:");
  controles.lblNotaManual[2].Place(120, 210, 1080, 240);
  controles.txtAusencias.Place(120, 480, 1080, 315);
  controles.lblNotaManual[3].Caption("Retrasos:");
  controles.lblNotaManual[3].Place(1380, 210, 1080, 240);
  controles.txtRetrasos.Place(1380, 480, 1080, 315);
}

void DibujarPie(const ControlesNotas& controles) {
  controles.cmdAceptar.Caption("Aceptar");
  controles.cmdAceptar.Place(6375, 5505, 1215, 375);
  controles.cmdAceptar.Default = true;
  controles.cmdCancelar.Caption("Cancelar");
  controles.cmdCancelar.Place(7725, 5505, 1215, 375);
  controles.cmdCancelar.Cancel = true;
  controles.fraAniCarga.Caption("Procesando... Espere por favor");
  controles.fraAniCarga.Place(120, 120, 4320, 1140);
  controles.fraAniCarga.Visible(false);
  controles.aniCarga.Place(240, 300, 3840, 720);
}

}  // namespace

void DibujarNotas(Form& form, const ControlesNotas& controles, const std::string& rotulo,
                  std::int32_t anchoRotulo) {
  form.Caption("Introducción de notas. Paso 2 de 2");
  form.Width(kAnchoMinimo);
  form.Height(kAltoMinimo);
  DibujarCabecera(controles, rotulo, anchoRotulo);
  DibujarPaneles(controles);
  DibujarRejillas(controles);
  DibujarPie(controles);
}

void AjustarNotas(Form& form, const ControlesNotas& c) {
  if (form.Height() < kAltoMinimo) form.Height(kAltoMinimo);
  if (form.Width() < kAnchoMinimo) form.Width(kAnchoMinimo);
  c.cmdCancelar.Top(form.ScaleHeight() - c.cmdCancelar.Height() - 180);
  c.cmdCancelar.Left(form.ScaleWidth() - c.cmdCancelar.Width() - 240);
  c.cmdAceptar.Top(c.cmdCancelar.Top());
  c.cmdAceptar.Left(c.cmdCancelar.Left() - c.cmdAceptar.Width() - 135);
  c.tabNotaManual.Height(c.cmdCancelar.Top() - c.tabNotaManual.Top() - 240);
  c.tabNotaManual.Width(form.ScaleWidth() - c.tabNotaManual.Left() - 240);
  for (auto& panel : c.fraNotaManual) {
    panel.Width(c.tabNotaManual.Width() - 360);
    panel.Height(c.tabNotaManual.Height() - 460);
  }
  c.fraNota.Height(c.fraNotaManual[0].Height() - 540);
  c.fraNota.Width(c.fraNotaManual[0].Width() - 360);
  c.rtvNotasAlumno.Height(c.fraNota.Height() - 540);
  c.rtvNotasAlumno.Width(c.fraNota.Width() - 360);
  c.fraNotaTutor.Height(c.fraNotaManual[1].Height() - 540);
  c.fraNotaTutor.Width(c.fraNotaManual[1].Width() - 360);
  c.fraObservacion.Top(c.fraNotaTutor.Height() - 1070);
  c.fraAusencia.Top(c.fraNotaTutor.Height() - 1070);
  c.fraAusencia.Left(c.fraNotaTutor.Width() - c.fraAusencia.Width() - 200);
  c.rtvNotasTutor.Height(c.fraNotaTutor.Height() - 1070 - 360);
  c.rtvNotasTutor.Width(c.fraNotaTutor.Width() - 360);
}

void MostrarPanel(TabStrip& tabNotaManual, std::span<Frame> fraNotaManual) {
  for (int tab = 1; tab <= tabNotaManual.TabCount(); ++tab)
    fraNotaManual[static_cast<std::size_t>(tab) - 1].Visible(tab == tabNotaManual.SelectedTab());
  tabNotaManual.ToBack();
}

void SoloCifras(int& keyAscii) {
  constexpr int kRetroceso = 8;
  if ((keyAscii >= '0' && keyAscii <= '9') || keyAscii == kRetroceso) return;
  Application::Instance().Screen().Beep();
  keyAscii = 0;
}

}  // namespace quorvane
