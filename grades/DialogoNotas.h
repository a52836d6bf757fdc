#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quorvane {

class Animation;
class ComboBox;
class CommandButton;
class Form;
class Frame;
class Label;
class Retivo;
class TabStrip;
class TextBox;

/// The controls of the dialog of an ordinary grade form, for the routines that only place them.
struct ControlesNotas {
  std::span<Label> lblNotaManual;  ///< of the combo, the observation, the absences, the delays
  ComboBox& combo;                 ///< what the form walks: students or subjects
  CommandButton& cmdAnterior;
  CommandButton& cmdSiguiente;
  TabStrip& tabNotaManual;
  std::span<Frame> fraNotaManual;  ///< the pane of the grades, the pane of the tutor
  Frame& fraNota;
  Retivo& rtvNotasAlumno;
  Frame& fraNotaTutor;
  Retivo& rtvNotasTutor;
  Frame& fraObservacion;
  ComboBox& cboObservacion;
  Frame& fraAusencia;
  TextBox& txtAusencias;
  TextBox& txtRetrasos;
  CommandButton& cmdAceptar;
  CommandButton& cmdCancelar;
  Frame& fraAniCarga;
  Animation& aniCarga;
};

/// The dialog as it is drawn: title, captions, measures, tab, columns that edit through lists.
/// `rotulo` is the caption of the combo and `anchoRotulo` the room that it takes.
void DibujarNotas(Form& form, const ControlesNotas& controles, const std::string& rotulo,
                  std::int32_t anchoRotulo);

/// `Form_Resize`: keeps the form from getting too small, and lets the panes follow its bottom and
/// right edges. Error 380 where that leaves a control less than nothing.
void AjustarNotas(Form& form, const ControlesNotas& controles);

/// `tabNotaManual_Click`: shows the pane of the selected tab and hides the others. A pane without
/// a tab keeps what it has.
void MostrarPanel(TabStrip& tabNotaManual, std::span<Frame> fraNotaManual);

/// A key of a counter: one that is neither a digit nor the backspace is dropped with a beep.
void SoloCifras(int& keyAscii);

}  // namespace quorvane
