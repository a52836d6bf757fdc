#pragma once

#include "frame/cConstCol.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"

namespace quorvane {

/// Picks which students stand on the register. Works the choice into `colAlumnos` of
/// `frmAlumnoPendiente`, which opens it and refreshes its list afterwards; writes nothing.
class frmAlumnos : public Form {
 public:
  // The captions of these two labels are crossed: each stands over the list that it names.
  Label lblDisponibles{*this, "lblDisponibles"};
  ListBox lstSeleccionados{*this, "lstSeleccionados"};  ///< item data: `IDAlumno`
  CommandButton cmdAgregarUno{*this, "cmdAgregarUno"};
  CommandButton cmdAgregarTodos{*this, "cmdAgregarTodos"};
  CommandButton cmdEliminarUno{*this, "cmdEliminarUno"};
  CommandButton cmdEliminarTodos{*this, "cmdEliminarTodos"};
  Label lblSeleccionadas{*this, "lblSeleccionadas"};
  ListBox lstDisponibles{*this, "lstDisponibles"};  ///< item data: `IDAlumno`
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmAlumnos();

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
  void PutOnRegister(std::int32_t id, const std::string& nombre);
  void TakeOffRegister(std::int32_t id);

  cConstCol estados_;
};

}  // namespace quorvane
