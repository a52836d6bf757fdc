#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"

namespace quorvane {

/// First screen of the register: picks the class whose register the next screen edits. It stays
/// alive, hidden, while the next screens run: they read the selection off its combo boxes.
class frmPendientes : public Form {
 public:
  Label Label1{*this, "Label1"};
  ComboBox cboTEnsenanza{*this, "cboTEnsenanza"};  ///< item data: `IDTipoEnsenanza`
  Label Label2{*this, "Label2"};
  ComboBox cboCurso{*this, "cboCurso"};  ///< item data: `IDCurso`
  Label Label3{*this, "Label3"};
  ComboBox cboSeccion{*this, "cboSeccion"};  ///< item data: `IDSeccion`
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmPendientes();

  void cboTEnsenanza_Click();
  void cboCurso_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;
};

}  // namespace quorvane
