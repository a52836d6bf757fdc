#pragma once

#include <array>
#include <cstdint>

#include "platform/controls/ControlArray.h"
#include "selection/FormularioPasoUno.h"  // IWYU pragma: keep

namespace quorvane {

/// Step one of grade entry by subject: what is graded, whether this user may enter grades today,
/// and which form opens. It stays loaded and hidden behind step two, which reads the selected
/// entries, `gIDPersonal` and `blnRecuperar` from here while it lives.
class frmNotaMateria1 : public Form {
 public:
  std::array<Frame, 2> fraNotaManual1 = ControlArray<Frame, 2>(*this, "fraNotaManual1");
  std::array<Label, 4> lblNotamanual1 =
      ControlArray<Label>(*this, "lblNotamanual1", fraNotaManual1, {0, 0, 0, 1});
  std::int16_t gIDPersonal = 0;  ///< the user's row in Personal; 0 for none, or profile 0
  ComboBox cboTipoEnsenanza{*this, "cboTipoEnsenanza", &fraNotaManual1[0]};
  ComboBox cboCursos{*this, "cboCursos", &fraNotaManual1[0]};
  ComboBox cboSecciones{*this, "cboSecciones", &fraNotaManual1[0]};
  ComboBox cboEvaluaciones{*this, "cboEvaluaciones", &fraNotaManual1[1]};
  CheckBox chkMostrar{*this, "chkMostrar"};
  CheckBox chkRecuperacion{*this, "chkRecuperacion"};
  bool blnRecuperar = false;  ///< the grades of the recovery are entered
  CheckBox chkTodosProm{*this, "chkTodosProm"};
  bool gblnTPromocion = false;  ///< it was checked; nobody reads it
  std::array<CommandButton, 2> cmdNotaManual1 =
      ControlArray<CommandButton, 2>(*this, "cmdNotaManual1");
  bool blnEntrar = false;               ///< a click of a list may run: it isn't the code's own
  bool blnPosibleRecuperacion = false;  ///< never set here: this dialog doesn't ask for recoveries

  frmNotaMateria1();

  void cboTipoEnsenanza_Click();
  void cboCursos_Click();
  void cboSecciones_Click();
  void cboEvaluaciones_Click();
  void cmdNotaManual1_Click(int Index);

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void AbrirPasoDos();
};

static_assert(FormularioPasoUno<frmNotaMateria1>);

}  // namespace quorvane
