#pragma once

#include <span>

#include "grades/dialog/DibujoNotas.h"
#include "grades/dialog/FormularioNotas.h"  // IWYU pragma: keep (the concept)

namespace quorvane {

// What the dialog of an ordinary grade form does as such, without regard to grades.

/// `tabNotaManual_Click`: shows the pane of the selected tab and hides the others. A pane without
/// a tab keeps what it has.
void MostrarPanel(TabStrip& tabNotaManual, std::span<Frame> fraNotaManual);

/// A key of a counter: one that is neither a digit nor the backspace is dropped with a beep.
void SoloCifras(int& keyAscii);

/// Wires each control to the form's handler of its name. The walk's combo box is the form's own
/// affair, and so is any event that only some of the forms answer.
template <FormularioNotas F>
void Conectar(F& form) {
  form.LeaveBy(form.cmdCancelar);
  form.cmdAnterior.Click = [&form] { form.cmdAnterior_Click(); };
  form.cmdSiguiente.Click = [&form] { form.cmdSiguiente_Click(); };
  form.cmdAceptar.Click = [&form] { form.cmdAceptar_Click(); };
  form.cmdCancelar.Click = [&form] { form.cmdCancelar_Click(); };
  form.tabNotaManual.Click = [&form] { form.tabNotaManual_Click(); };
  form.rtvNotasAlumno.InicioEdicion = [&form] { form.rtvNotasAlumno_InicioEdicion(); };
  form.rtvNotasAlumno.FinEdicion = [&form] { form.rtvNotasAlumno_FinEdicion(); };
  form.rtvNotasAlumno.CambioAncho = [&form] { form.rtvNotasAlumno_CambioAncho(); };
  form.rtvNotasTutor.InicioEdicion = [&form] { form.rtvNotasTutor_InicioEdicion(); };
  form.rtvNotasTutor.FinEdicion = [&form] { form.rtvNotasTutor_FinEdicion(); };
  form.rtvNotasTutor.CambioAncho = [&form] { form.rtvNotasTutor_CambioAncho(); };
  form.cboObservacion.Click = [&form] { form.cboObservacion_Click(); };
  form.txtAusencias.KeyPress = SoloCifras;
  form.txtRetrasos.KeyPress = SoloCifras;
  form.txtAusencias.Change = [&form] { form.txtAusencias_Change(); };
  form.txtRetrasos.Change = [&form] { form.txtRetrasos_Change(); };
}

/// `Form_Resize`: keeps the form from getting too small, and lets the panes follow its bottom and
/// right edges. Error 380 where that leaves a control less than nothing.
template <FormularioNotas F>
void AjustarNotas(F& form) {
  if (form.Height() < kAltoMinimoNotas) form.Height(kAltoMinimoNotas);
  if (form.Width() < kAnchoMinimoNotas) form.Width(kAnchoMinimoNotas);
  form.cmdCancelar.Top(form.ScaleHeight() - form.cmdCancelar.Height() - 180);
  form.cmdCancelar.Left(form.ScaleWidth() - form.cmdCancelar.Width() - 240);
  form.cmdAceptar.Top(form.cmdCancelar.Top());
  form.cmdAceptar.Left(form.cmdCancelar.Left() - form.cmdAceptar.Width() - 135);
  form.tabNotaManual.Height(form.cmdCancelar.Top() - form.tabNotaManual.Top() - 240);
  form.tabNotaManual.Width(form.ScaleWidth() - form.tabNotaManual.Left() - 240);
  for (auto& panel : form.fraNotaManual) {
    panel.Width(form.tabNotaManual.Width() - 360);
    panel.Height(form.tabNotaManual.Height() - 460);
  }
  auto& fraNota = form.fraNota[0];
  fraNota.Height(form.fraNotaManual[0].Height() - 540);
  fraNota.Width(form.fraNotaManual[0].Width() - 360);
  form.rtvNotasAlumno.Height(fraNota.Height() - 540);
  form.rtvNotasAlumno.Width(fraNota.Width() - 360);
  auto& fraNotaTutor = form.fraNotaTutor[0];
  auto& fraAusencia = form.fraAusencia[0];
  fraNotaTutor.Height(form.fraNotaManual[1].Height() - 540);
  fraNotaTutor.Width(form.fraNotaManual[1].Width() - 360);
  form.fraObservacion[0].Top(fraNotaTutor.Height() - 1070);
  fraAusencia.Top(fraNotaTutor.Height() - 1070);
  fraAusencia.Left(fraNotaTutor.Width() - fraAusencia.Width() - 200);
  form.rtvNotasTutor.Height(fraNotaTutor.Height() - 1070 - 360);
  form.rtvNotasTutor.Width(fraNotaTutor.Width() - 360);
}

}  // namespace quorvane
