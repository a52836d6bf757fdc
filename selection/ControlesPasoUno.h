#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>

namespace quorvane {

class CheckBox;
class ComboBox;
class CommandButton;
class Form;
class Frame;
class Label;

/// The controls that a step-one dialog has whatever it grades, for the routines that treat them
/// alike. Valid as long as the dialog.
struct ControlesPasoUno {
  std::span<Frame> fraNotaManual1;
  std::span<Label> lblNotamanual1;
  ComboBox& cboTipoEnsenanza;
  ComboBox& cboCursos;
  ComboBox& cboSecciones;
  ComboBox& cboEvaluaciones;
  CheckBox& chkMostrar;
  CheckBox& chkRecuperacion;
  CheckBox& chkTodosProm;
  std::span<CommandButton> cmdNotaManual1;
};

/// The controls of that dialog.
template <class Dialogo>
ControlesPasoUno ControlesDe(Dialogo& dialogo) {
  return {dialogo.fraNotaManual1, dialogo.lblNotamanual1,  dialogo.cboTipoEnsenanza,
          dialogo.cboCursos,      dialogo.cboSecciones,    dialogo.cboEvaluaciones,
          dialogo.chkMostrar,     dialogo.chkRecuperacion, dialogo.chkTodosProm,
          dialogo.cmdNotaManual1};
}

/// The controls of a dialog that grades one subject or one student: a frame of their own.
struct ControlesEleccion {
  Frame& marco;
  Label& rotulo;
  ComboBox& lista;
  CommandButton& cmdAnterior;
  CommandButton& cmdSiguiente;
};

/// Title, captions, measures, default and cancel button.
void DibujarPasoUno(Form& formulario, const ControlesPasoUno& controles);

/// The frame below that of the evaluations, with its caption; what stood there moves down. To be
/// called after `DibujarPasoUno`.
void DibujarEleccion(Form& formulario, const ControlesPasoUno& controles,
                     const ControlesEleccion& eleccion, const std::string& texto);

/// What `Form_Load` does in all the dialogs. Recovery and promotion are out of sight, the dialog
/// can't go on yet and bears the session's icon; a user of another profile than 0 is looked up into
/// `gIDPersonal`; the types of teaching are listed and the first is selected, which clicks the
/// list, and the evaluations stand in for those of a section. Fails as the statements do, with the
/// hourglass left on the screen.
void CargarPasoUno(Form& formulario, const ControlesPasoUno& controles, std::int16_t& gIDPersonal);

/// False when one of the lists has no entry selected.
bool TodosElegidos(std::initializer_list<const ComboBox*> listas);

/// Lets pending events run once the form is out of sight.
void OcultarYCeder(Form& formulario);

}  // namespace quorvane
