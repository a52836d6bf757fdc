#pragma once

#include <cstdint>
#include <string>

#include "grades/dialog/FormularioNotas.h"

namespace quorvane {

// The dialog of an ordinary grade form as it is drawn, all measures in twips.

inline constexpr std::int32_t kAltoMinimoNotas = 6465;
inline constexpr std::int32_t kAnchoMinimoNotas = 9300;

/// The walk. `rotulo` is the caption of its combo box and `anchoRotulo` the room that it takes.
template <FormularioNotas F>
void DibujarCabecera(F& form, const std::string& rotulo, std::int32_t anchoRotulo) {
  constexpr std::int32_t kMargen = 240;
  form.lblNotaManual[0].Caption(rotulo);
  form.lblNotaManual[0].Place(kMargen, 285, anchoRotulo, 240);
  const auto izquierda = kMargen + anchoRotulo + 60;
  Recorrido(form).Place(izquierda, 240, 5100, 315);
  form.cmdAnterior.Caption("<");
  form.cmdAnterior.Place(izquierda + 5220, 240, 435, 315);
  form.cmdSiguiente.Caption(">");
  form.cmdSiguiente.Place(izquierda + 5715, 240, 435, 315);
}

template <FormularioNotas F>
void DibujarPaneles(F& form) {
  form.tabNotaManual.AddTab("Notas");
  form.tabNotaManual.Place(240, 720, 8700, 4545);
  for (auto& panel : form.fraNotaManual) panel.Place(420, 1110, 8340, 4085);
  form.fraNotaManual[1].Visible(false);
  form.fraNota[0].Caption("Notas del Alumno:");
  form.fraNota[0].Place(180, 270, 7980, 3545);
  form.fraNotaTutor[0].Caption("Notas y Observaciones del Alumno:");
  form.fraNotaTutor[0].Place(180, 270, 7980, 3545);

  form.fraObservacion[0].Place(180, 2475, 4740, 930);
  form.lblNotaManual[1].Caption("Observación:");
  form.lblNotaManual[1].Place(120, 210, 4500, 240);
  form.cboObservacion.Place(120, 480, 4500, 315);

  form.fraAusencia[0].Place(5080, 2475, 2700, 930);
  form.lblNotaManual[2].Caption("Ausencias:");
  form.lblNotaManual[2].Place(120, 210, 1080, 240);
  form.txtAusencias.Place(120, 480, 1080, 315);
  form.lblNotaManual[3].Caption("Retrasos:");
  form.lblNotaManual[3].Place(1380, 210, 1080, 240);
  form.txtRetrasos.Place(1380, 480, 1080, 315);
}

/// The columns that edit through lists are set here, as they are designed.
template <FormularioNotas F>
void DibujarRejillas(F& form) {
  form.rtvNotasAlumno.Place(180, 360, 7620, 3005);
  form.rtvNotasAlumno.Cols(8);
  form.rtvNotasAlumno.ListColumns(1, 5);
  form.rtvNotasTutor.Place(180, 300, 7620, 2115);
  form.rtvNotasTutor.Cols(4);
  form.rtvNotasTutor.ListColumns(1, 2);
}

template <FormularioNotas F>
void DibujarPie(F& form) {
  form.cmdAceptar.Caption("Aceptar");
  form.cmdAceptar.Place(6375, 5505, 1215, 375);
  form.cmdAceptar.Default = true;
  form.cmdCancelar.Caption("Cancelar");
  form.cmdCancelar.Place(7725, 5505, 1215, 375);
  form.cmdCancelar.Cancel = true;
  form.fraAniCarga.Caption("Procesando... Espere por favor");
  form.fraAniCarga.Place(120, 120, 4320, 1140);
  form.fraAniCarga.Visible(false);
  form.aniCarga.Place(240, 300, 3840, 720);
}

/// The whole dialog.
template <FormularioNotas F>
void DibujarNotas(F& form, const std::string& rotulo, std::int32_t anchoRotulo) {
  form.Caption("Introducción de notas. Paso 2 de 2");
  form.Width(kAnchoMinimoNotas);
  form.Height(kAltoMinimoNotas);
  DibujarCabecera(form, rotulo, anchoRotulo);
  DibujarPaneles(form);
  DibujarRejillas(form);
  DibujarPie(form);
}

}  // namespace quorvane
