#pragma once

#include <cstdint>

#include "frame/cConstCol.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "register/cMatProf.h"

namespace quorvane {

/// Sets the teacher of the subject detail selected on the page "Materias" of
/// `frmAlumnoPendiente`, with the host's person search. Changes that object and the text of its
/// row; writes nothing.
class frmPropMatProf : public Form {
 public:
  std::int32_t IDProfesorSeleccionado = 0;  ///< the teacher chosen so far, 0 for none

  Label Label1{*this, "Label1"};
  Label lblMateria{*this, "lblMateria"};
  Label Label2{*this, "Label2"};
  Label lblProfesor{*this, "lblProfesor"};
  CommandButton cmdNProfesor{*this, "cmdNProfesor"};
  CommandButton cmdElimProfesor{*this, "cmdElimProfesor"};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmPropMatProf();

  void cmdNProfesor_Click();
  void cmdElimProfesor_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  /// The subject detail that the form works on.
  [[nodiscard]] static cMatProf& MatProf();

  cConstCol estados_;
};

}  // namespace quorvane
