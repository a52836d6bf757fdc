#pragma once

#include <array>

#include "frame/cConstCol.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/TabStrip.h"
#include "platform/data/Collection.h"
#include "register/cAlumno.h"
#include "register/cMatProf.h"

namespace quorvane {

/// The register of the section chosen on `frmPendientes`. It reads the whole register into
/// memory, where the dialogs that it opens change it; only `cmdAceptar_Click` writes.
class frmAlumnoPendiente : public Form {
 public:
  /// The register, for the dialogs to change. The keys are the texts of the ids.
  Collection<cAlumno> colAlumnos;
  Collection<cMatProf> colMatProf;

  TabStrip TabDatos{*this, "TabDatos"};
  std::array<Frame, 2> fraTab = ControlArray<Frame, 2>(*this, "fraTab");
  Label Label1{*this, "Label1", &fraTab[0]};
  MSFlexGrid msgAlumnos{*this, "msgAlumnos", &fraTab[0]};  ///< row data: `IDAlumno`
  CommandButton cmdListar{*this, "cmdListar", &fraTab[0]};
  CommandButton cmdPropiedades{*this, "cmdPropiedades", &fraTab[0]};
  Label Label2{*this, "Label2", &fraTab[1]};
  MSFlexGrid msgMaterias{*this, "msgMaterias", &fraTab[1]};  ///< row data: `IDMatDetalle`
  CommandButton cmdPropMat{*this, "cmdPropMat", &fraTab[1]};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmAlumnoPendiente();

  void TabDatos_Click();
  void cmdListar_Click();
  void cmdPropiedades_Click();
  void cmdPropMat_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void CargarListaAlumnos();
  void CargarListaMaterias();
  /// Subjects have teachers of their own since this version.
  [[nodiscard]] static bool WithTeachers();

  cConstCol estados_;
};

}  // namespace quorvane
