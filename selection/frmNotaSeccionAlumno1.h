#pragma once

#include <array>
#include <cstdint>

#include "platform/controls/ControlArray.h"
#include "selection/FormularioPasoUno.h"  // IWYU pragma: keep

namespace quorvane {

/// Step one of the section view by student: beside section and evaluation it asks for one pending
/// subject, in which step two walks the students. It stays loaded and hidden behind step two, which
/// reads the selected entries, `gIDPersonal` and `blnRecuperar` from here while it lives.
class frmNotaSeccionAlumno1 : public Form {
 public:
  std::array<Frame, 3> fraNotaManual1 = ControlArray<Frame, 3>(*this, "fraNotaManual1");
  std::array<Label, 5> lblNotamanual1 =
      ControlArray<Label>(*this, "lblNotamanual1", fraNotaManual1, {0, 0, 0, 1, 2});
  std::int16_t gIDPersonal = 0;  ///< the user's row in Personal; 0 for none, or profile 0
  ComboBox cboTipoEnsenanza{*this, "cboTipoEnsenanza", &fraNotaManual1[0]};
  bool blnPosibleRecuperacion = false;  ///< the marking system of that type has recoveries
  ComboBox cboCursos{*this, "cboCursos", &fraNotaManual1[0]};
  ComboBox cboSecciones{*this, "cboSecciones", &fraNotaManual1[0]};
  bool blnTutor = false;  ///< the user sees the whole of that section
  ComboBox cboEvaluaciones{*this, "cboEvaluaciones", &fraNotaManual1[1]};
  ComboBox cboMateria{*this, "cboMateria", &fraNotaManual1[2]};
  CommandButton cmdAnterior{*this, "cmdAnterior", &fraNotaManual1[2]};
  CommandButton cmdSiguiente{*this, "cmdSiguiente", &fraNotaManual1[2]};
  CheckBox chkMostrar{*this, "chkMostrar"};
  CheckBox chkRecuperacion{*this, "chkRecuperacion"};
  bool blnRecuperar = false;  ///< the grades of the recovery are entered
  CheckBox chkTodosProm{*this, "chkTodosProm"};
  bool gblnTPromocion = false;  ///< it was checked; nobody reads it
  std::array<CommandButton, 2> cmdNotaManual1 =
      ControlArray<CommandButton, 2>(*this, "cmdNotaManual1");
  bool blnEntrar = false;  ///< a click of a list may run: it isn't the code's own

  frmNotaSeccionAlumno1();

  void cboTipoEnsenanza_Click();
  void cboCursos_Click();
  void cboSecciones_Click();
  void cboEvaluaciones_Click();
  void cboMateria_Click();
  void cmdAnterior_Click();
  void cmdSiguiente_Click();
  void cmdNotaManual1_Click(int Index);

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void AbrirPasoDos();
};

static_assert(FormularioPasoUnoDeSeccion<frmNotaSeccionAlumno1>);

}  // namespace quorvane
