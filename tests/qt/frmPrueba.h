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
  explicit frmPrueba(const std::string& name = "frmPrueba") : Form(name) {
    Draw();
    Fill();
    Wire();
  }

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
  std::function<void()> OnActivate = [] {};
  std::function<void(int&)> OnKey = [](int&) {};
  std::function<void()> OnResize = [] {};
  std::function<void()> OnUnload = [] {};

  void Log(const std::string& event) { log.push_back(event); }

 protected:
  void Form_Activate() override { OnActivate(); }
  void Form_KeyDown(int& keyCode) override { OnKey(keyCode); }
  void Form_Resize() override { OnResize(); }
  void Form_Unload() override {
    Log("descarga");
    OnUnload();
  }

 private:
  template <class Grid>
  static void Head(Grid& grid, std::initializer_list<const char*> headings) {
    grid.Cols(static_cast<int>(headings.size()));
    grid.Rows(1);
    for (int col = 0; const auto* heading : headings) grid.TextMatrix(0, col++, heading);
  }

  void Draw() {
    Caption("Prueba de controles");
    Icon("C:\\Zendria\\iconos\\zendria.ico");
    lblCurso.Caption("Curso:");
    lblCurso.Place(120, 165, 900, 255);
    cboCurso.Place(1080, 120, 3000, 315);
    chkTodo.Caption("Mostrar todo");
    chkTodo.Place(4320, 135, 2400, 285);
    lblTexto.Caption("Texto:");
    lblTexto.Place(6840, 165, 900, 255);
    txtTexto.Place(7800, 120, 1800, 315);
    lstLista[0].Place(120, 600, 2400, 1800);
    lstLista[1].Place(2640, 600, 2400, 1800);
    tabPaginas.Place(5160, 600, 4440, 1800);
    fraPagina.Caption("Página");
    fraPagina.Place(5340, 1020, 4080, 1260);
    cmdPagina.Caption("Pulsar");
    cmdPagina.Place(240, 480, 1335, 375);
    msgRejilla.Place(120, 2520, 4740, 2400);
    rtvNotas.Place(4980, 2520, 4620, 2400);
    fraCarga.Caption("Cargando Datos");
    fraCarga.Place(3000, 2000, 3600, 1500);
    fraCarga.Visible(false);
    aniCarga.Place(300, 360, 3000, 960);
    cmdAceptar.Caption("Aceptar");
    cmdAceptar.Default = true;
    cmdAceptar.Place(6720, 5100, 1335, 375);
    cmdCancelar.Caption("Cancelar");
    cmdCancelar.Cancel = true;
    cmdCancelar.Place(8220, 5100, 1335, 375);
    Width(9840);
    Height(6120);
  }

  void Fill() {
    for (const auto* text : {"Primero", "Segundo", "Tercero"}) cboCurso.AddItem(text, 10);
    for (const auto* text : {"Álvarez, Ana", "Bueno, Luis", "Castro, Eva"})
      lstLista[0].AddItem(text);
    tabPaginas.AddTab("Una");
    tabPaginas.AddTab("Otra");

    msgRejilla.FixedRows(1);
    Head(msgRejilla, {"Materia", "1ª Eval.", "Final", ""});
    for (const auto* text : {"Lengua (1º ESO)", "Matemáticas (1º ESO)", "Música (2º ESO)"}) {
      msgRejilla.AddItem(text);
      msgRejilla.TextMatrix(msgRejilla.Rows() - 1, 1, "X");
    }
    msgRejilla.ColWidth(0, 2400);
    msgRejilla.ColAlignment(1, 4);
    msgRejilla.ColAlignment(2, 4);
    msgRejilla.ColWidth(3, 0);

    Head(rtvNotas, {"Materia", "Nota", "Actitud", ""});
    for (const auto* text : {"Lengua", "Inglés"}) rtvNotas.AddItem(text);
    rtvNotas.FixedRows(1);
    rtvNotas.ColWidth(0, 1500);
    rtvNotas.ColWidth(3, 0);
    rtvNotas.ListColumns(1, 2);
    rtvNotas.TextMatrix(1, 1, "10");
  }

  void Wire() {
    cboCurso.Click = [this] { Log("curso " + std::to_string(cboCurso.ListIndex())); };
    chkTodo.Click = [this] { Log("todo " + std::to_string(chkTodo.Value())); };
    txtTexto.Change = [this] { Log("texto " + txtTexto.Text()); };
    txtTexto.KeyPress = [](int& key) {
      if (key != 8 && (key < '0' || key > '9')) key = 0;
    };
    for (std::size_t i = 0; i < 2; ++i) {
      auto& from = lstLista[i];
      auto& to = lstLista[1 - i];
      from.DblClick = [this, &from, &to, i] {
        Log("doble " + std::to_string(i) + " " + from.Text());
        to.AddItem(from.Text());
        from.RemoveItem(from.ListIndex());
      };
    }
    tabPaginas.Click = [this] { Log("pestana " + std::to_string(tabPaginas.SelectedTab())); };
    cmdPagina.Click = [this] { Log("pagina"); };
    msgRejilla.DblClick = [this] { Log("rejilla " + std::to_string(msgRejilla.RowSel())); };
    rtvNotas.InicioEdicion = [this] {
      Log("inicio " + std::to_string(rtvNotas.Row()) + "," + std::to_string(rtvNotas.Col()));
      rtvNotas.ListaLimpiar(rtvNotas.Col());
      rtvNotas.ListaAnadir(rtvNotas.Col(), " ", 0);
      for (const auto* text : {"1", "10", "5", "Notable", "Sobresaliente", "Óptimo"})
        rtvNotas.ListaAnadir(rtvNotas.Col(), text, 1);
    };
    rtvNotas.FinEdicion = [this] { Log("fin " + std::to_string(rtvNotas.ListaIndice())); };
    rtvNotas.CambioAncho = [this] { Log("ancho"); };
    for (auto [button, event] : {std::pair(&cmdAceptar, "aceptar"), {&cmdCancelar, "cancelar"}})
      button->Click = [this, event = std::string(event)] {
        Log(event);
        Unload();
      };
  }
};

}  // namespace quorvane::test
