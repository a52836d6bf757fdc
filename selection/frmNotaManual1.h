#pragma once

#include <array>
#include <cstdint>

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"

namespace quorvane {

/// Step one of grade entry by student: what is graded, whether this user may enter grades today,
/// and which form opens. It stays loaded and hidden behind step two, which reads the selected
/// entries, `gIDPersonal` and `blnRecuperar` from here while it lives.
class frmNotaManual1 : public Form {
 public:
  frmNotaManual1();

  std::array<Frame, 2> fraNotaManual1{Frame(*this, "fraNotaManual1(0)"),
                                      Frame(*this, "fraNotaManual1(1)")};
  std::array<Label, 4> lblNotamanual1{Label(*this, "lblNotamanual1(0)", &fraNotaManual1[0]),
                                      Label(*this, "lblNotamanual1(1)", &fraNotaManual1[0]),
                                      Label(*this, "lblNotamanual1(2)", &fraNotaManual1[0]),
                                      Label(*this, "lblNotamanual1(3)", &fraNotaManual1[1])};
  ComboBox cboTipoEnsenanza{*this, "cboTipoEnsenanza", &fraNotaManual1[0]};
  ComboBox cboCursos{*this, "cboCursos", &fraNotaManual1[0]};
  ComboBox cboSecciones{*this, "cboSecciones", &fraNotaManual1[0]};
  ComboBox cboEvaluaciones{*this, "cboEvaluaciones", &fraNotaManual1[1]};
  CheckBox chkMostrar{*this, "chkMostrar"};
  CheckBox chkRecuperacion{*this, "chkRecuperacion"};
  CheckBox chkTodosProm{*this, "chkTodosProm"};
  std::array<CommandButton, 2> cmdNotaManual1{CommandButton(*this, "cmdNotaManual1(0)"),
                                              CommandButton(*this, "cmdNotaManual1(1)")};

  bool blnRecuperar = false;            ///< the grades of the recovery are entered
  bool blnPosibleRecuperacion = false;  ///< the marking system of the type has recoveries
  bool blnEntrar = false;               ///< a click of a list may run: it isn't the code's own
  std::int16_t gIDPersonal = 0;         ///< the user's row in Personal; 0 for none, or profile 0
  bool gblnTPromocion = false;          ///< chkTodosProm was checked; nobody reads it

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

}  // namespace quorvane
