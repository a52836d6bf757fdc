#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Animation.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"

namespace quorvane::test {

/// A form with every kind of control, placed by its own measures, that writes down each event.
class frmPrueba : public Form {
 public:
  explicit frmPrueba(const std::string& name = "frmPrueba");

  Label lblCurso{*this, "lblCurso"};
  ComboBox cboCurso{*this, "cboCurso"};
  CheckBox chkTodo{*this, "chkTodo"};
  Label lblTexto{*this, "lblTexto"};
  TextBox txtTexto{*this, "txtTexto"};
  std::array<ListBox, 2> lstLista{ListBox(*this, "lstLista(0)"), ListBox(*this, "lstLista(1)")};
  TabStrip tabPaginas{*this, "tabPaginas"};
  Frame fraPagina{*this, "fraPagina"};
  CommandButton cmdPagina{*this, "cmdPagina", &fraPagina};
  MSFlexGrid msgRejilla{*this, "msgRejilla"};
  Retivo rtvNotas{*this, "rtvNotas"};
  Frame fraCarga{*this, "fraCarga"};
  Animation aniCarga{*this, "aniCarga", &fraCarga};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  std::vector<std::string> log;
  std::function<void()> OnActivate;
  std::function<void(int&)> OnKey;
  std::function<void()> OnResize;
  std::function<void()> OnUnload;

  void Log(const std::string& event) { log.push_back(event); }

 protected:
  void Form_Activate() override;
  void Form_KeyDown(int& keyCode) override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void Draw();
  void Fill();
  void Wire();
};

}  // namespace quorvane::test
