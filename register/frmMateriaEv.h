#pragma once

#include "frame/cConstCol.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "register/cMateria.h"

namespace quorvane {

/// Picks the evaluations in which the subject selected on `frmAlumnoMateria` is to be graded: any
/// ordinary ones, and at most two final ones of one kind. Changes that subject; writes nothing.
class frmMateriaEv : public Form {
 public:
  Label Label1{*this, "Label1"};
  Label Label2{*this, "Label2"};
  // The captions of these two labels are crossed: each stands over the list that it names.
  Label lblDisponibles{*this, "lblDisponibles"};
  ListBox lstSeleccionados{*this, "lstSeleccionados"};  ///< item data: `IDNumEvaluacion`
  CommandButton cmdAgregarUno{*this, "cmdAgregarUno"};
  CommandButton cmdAgregarTodos{*this, "cmdAgregarTodos"};
  CommandButton cmdEliminarUno{*this, "cmdEliminarUno"};
  CommandButton cmdEliminarTodos{*this, "cmdEliminarTodos"};
  Label lblSeleccionadas{*this, "lblSeleccionadas"};
  ListBox lstDisponibles{*this, "lstDisponibles"};  ///< item data: `IDNumEvaluacion`
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmMateriaEv();

  void cmdAgregarUno_Click();
  void cmdAgregarTodos_Click();
  void cmdEliminarUno_Click();
  void cmdEliminarTodos_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  /// The subject that the form works on.
  [[nodiscard]] static cMateria& Materia();
  /// False, and says why, when the selected final evaluations are too many or of two kinds.
  bool Validar();
  void PutOnSubject(std::int32_t id, const std::string& nombre);
  /// False when the subject doesn't have the evaluation.
  bool TakeOffSubject(std::int32_t id);

  cConstCol estados_;
};

}  // namespace quorvane
