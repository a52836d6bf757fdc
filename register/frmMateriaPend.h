#pragma once

#include "frame/cConstCol.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"

namespace quorvane {

/// Adds a pending subject to the student of `frmAlumnoMateria`: a subject as taught in a section.
class frmMateriaPend : public Form {
 public:
  Label Label1{*this, "Label1"};
  ComboBox cboCurso{*this, "cboCurso"};  ///< item data: `IDCurso`
  Label Label3{*this, "Label3"};
  ComboBox cboSeccion{*this, "cboSeccion"};  ///< item data: `IDSeccion`
  Label Label2{*this, "Label2"};
  ComboBox cboMateria{*this, "cboMateria"};  ///< item data: `IDMateriaDetalles`
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmMateriaPend();

  void cboCurso_Click();
  void cboSeccion_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  cConstCol estados_;
};

}  // namespace quorvane
