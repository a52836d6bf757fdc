#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/guion/host/HostOptions.h"
#include "adapters/guion/host/ModuleEntry.h"
#include "platform/controls/Animation.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/data/Connection.h"
#include "tests/support/KeepingConnection.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {

/// A form with a control of each kind. It tells each of its events as a statement "suceso ..." on
/// its connection.
class frmPrueba : public Form {
 public:
  frmPrueba();

  /// What the test has its buttons do.
  static inline Connection* conexion = nullptr;
  static inline std::function<void()> alPulsar;

  ComboBox cboCurso{*this, "cboCurso"};
  ListBox lstAlumnos{*this, "lstAlumnos"};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};
  CommandButton cmdAccion{*this, "cmdAccion"};
  CheckBox chkVer{*this, "chkVer"};
  TextBox txtNombre{*this, "txtNombre"};
  TabStrip tabFichas{*this, "tabFichas"};
  MSFlexGrid msgFilas{*this, "msgFilas"};
  Retivo rtvNotas{*this, "rtvNotas"};
  Label lblTexto{*this, "lblTexto"};
  Animation aniOcupado{*this, "aniOcupado"};
  std::array<Frame, 2> fraTab{{{*this, "fraTab(0)"}, {*this, "fraTab(1)"}}};
  CommandButton cmdOculto{*this, "cmdOculto", &fraTab[0]};
  CommandButton cmdInactivo{*this, "cmdInactivo", &fraTab[1]};

  void Form_Load() override { Suceso("Load"); }
  void Form_Activate() override { Suceso("Activate"); }
  void Form_Resize() override { Suceso("Resize " + std::to_string(Width())); }
  void Form_KeyDown(int& keyCode) override;
  void Form_Unload() override;

 private:
  static void Suceso(const std::string& texto) { conexion->Execute("suceso " + texto); }
  void FillControls();
  void FillGrids();
  void WireEvents();
};

/// The first of two forms that take turns, each closing itself before it shows the other.
class frmUno : public Form {
 public:
  frmUno();
  CommandButton cmdSiguiente{*this, "cmdSiguiente"};
  CommandButton cmdFalla{*this, "cmdFalla"};
  void Form_Unload() override { FormInstance<frmUno>::Drop(); }

  static inline std::function<void()> alSeguir;
};

class frmDos : public Form {
 public:
  frmDos();
  CommandButton cmdVolver{*this, "cmdVolver"};
  CommandButton cmdFalla{*this, "cmdFalla"};
  void Form_Unload() override { FormInstance<frmDos>::Drop(); }
};

/// Plays scripts against forms of the tests' own: node 1 opens `frmPrueba`, node 2 `frmUno`, all
/// others nothing.
class GuionTest : public testing::Test {
 protected:
  GuionTest();

  /// All lines but the echoes; `status` and `session` are of the last play.
  std::vector<std::string> Play(const std::string& script);
  /// Of a script in `frmPrueba`: what follows its opening. The script leaves it open.
  std::vector<std::string> PlayIn(const std::string& script);

  int status = -1;
  std::shared_ptr<const SessionObject> session;
  guion::HostOptions options;
  guion::ModuleEntry module;
  KeepingConnection centro{"centro"};
  KeepingConnection borrado{"borrado"};
  KeepingConnection entrada{"entrada"};
  KeepingConnection otra{""};
  bool echo = false;
};

using Lines = std::vector<std::string>;

}  // namespace quorvane::test
