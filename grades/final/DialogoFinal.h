#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quorvane {

class Animation;
class CheckBox;
class ComboBox;
class CommandButton;
class Form;
class Frame;
class Label;
class Retivo;

/// The controls of the dialog of a final grade form, for the routines that only place them.
struct ControlesFinal {
  std::span<Label> lblNotaManual;  ///< of the combo, of the observation
  ComboBox& combo;                 ///< what the form walks: students or subjects
  CommandButton& cmdAnterior;
  CommandButton& cmdSiguiente;
  Frame& fraNota;
  Retivo& rtvNotasAlumno;
  Frame& fraObservacion;
  ComboBox& cboObservacion;
  CheckBox& chkPromocion;
  CommandButton& cmdAceptar;
  CommandButton& cmdCancelar;
  Frame& fraAniCarga;
  Animation& aniCarga;
};

/// The controls of one of the final forms, which all have these members; `combo` is its walk.
template <class FormularioFinal>
ControlesFinal ControlesDe(FormularioFinal& form, ComboBox& combo) {
  return {form.lblNotaManual,     combo,
          form.cmdAnterior,       form.cmdSiguiente,
          form.fraNota,           form.rtvNotasAlumno,
          form.fraObservacion[0], form.cboObservacion,
          form.chkPromocion,      form.cmdAceptar,
          form.cmdCancelar,       form.fraAniCarga,
          form.aniCarga};
}

/// The dialog as it is drawn: title, captions, measures, columns that edit through lists. `rotulo`
/// is the caption of the combo and `anchoRotulo` the room that it takes.
void DibujarFinal(Form& form, const ControlesFinal& controles, const std::string& rotulo,
                  std::int32_t anchoRotulo);

/// `Form_Resize`: keeps the form from getting too small, and lets the grid and the buttons follow
/// its bottom and right edges.
void AjustarFinal(Form& form, const ControlesFinal& controles);

}  // namespace quorvane
