#include "tests/guion/GuionTest.h"

#include <sstream>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/ScriptParser.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/Guion.h"

namespace quorvane::test {

frmPrueba::frmPrueba() : Form("frmPrueba") {
  Caption("Prueba nº 1");
  Width(6000);
  Height(4000);
  FillControls();
  FillGrids();
  WireEvents();
}

void frmPrueba::FillControls() {
  cboCurso.AddItem("1º ESO", 10);
  cboCurso.AddItem("#1", 20);
  cboCurso.AddItem("1º ESO", 30);
  lstAlumnos.AddItem("Gil", 5);
  lstAlumnos.AddItem("nada", -6);
  cmdAceptar.Caption("&Aceptar");
  cmdAceptar.Default = true;
  cmdCancelar.Cancel = true;
  chkVer.Caption("Ver todo");
  tabFichas.AddTab("Uno");
  tabFichas.AddTab("Dos");
  lblTexto.Caption("\"Ñu\"");
  fraTab[0].Visible(false);
  fraTab[1].Enabled(false);
}

void frmPrueba::FillGrids() {
  msgFilas.Rows(3);
  msgFilas.FixedRows(1);
  msgFilas.RowData(2, 77);
  msgFilas.ColWidth(1, 0);
  rtvNotas.Cols(3);
  rtvNotas.FixedRows(1);
  rtvNotas.ColWidth(2, 0);
  rtvNotas.ListColumns(1, 2);
}

void frmPrueba::WireEvents() {
  cboCurso.Click = [this] { Suceso("cboCurso " + std::to_string(cboCurso.ListIndex())); };
  lstAlumnos.Click = [this] { Suceso("lstAlumnos " + lstAlumnos.Text()); };
  lstAlumnos.DblClick = [] { Suceso("lstAlumnos doble"); };
  cmdAceptar.Click = [] { Suceso("cmdAceptar"); };
  cmdCancelar.Click = [] { Suceso("cmdCancelar"); };
  cmdAccion.Click = [] { alPulsar(); };
  chkVer.Click = [this] { Suceso("chkVer " + std::to_string(chkVer.Value())); };
  txtNombre.KeyPress = [](int& tecla) {
    if (tecla >= '0' && tecla <= '9') tecla = 0;
  };
  txtNombre.Change = [this] { Suceso("txtNombre " + txtNombre.Text()); };
  tabFichas.Click = [this] { Suceso("tabFichas " + std::to_string(tabFichas.SelectedTab())); };
  msgFilas.DblClick = [this] { Suceso("msgFilas " + std::to_string(msgFilas.Row())); };
  rtvNotas.InicioEdicion = [this] {
    Suceso("InicioEdicion " + std::to_string(rtvNotas.Row()) + " " +
           std::to_string(rtvNotas.Col()));
    if (rtvNotas.Col() == 0) return;
    rtvNotas.ListaAnadir(rtvNotas.Col(), " ", 0);
    rtvNotas.ListaAnadir(rtvNotas.Col(), "Notable", 7);
  };
  rtvNotas.FinEdicion = [this] {
    Suceso("FinEdicion " + std::to_string(rtvNotas.ListaIndice()) + " " +
           rtvNotas.TextMatrix(rtvNotas.Row(), rtvNotas.Col()));
  };
}

void frmPrueba::Form_KeyDown(int& keyCode) {
  Suceso("KeyDown " + std::to_string(keyCode));
  if (keyCode == 40) keyCode = 0;
}

void frmPrueba::Form_Unload() {
  Suceso("Unload");
  FormInstance<frmPrueba>::Drop();
}

frmUno::frmUno() : Form("frmUno") {
  cmdSiguiente.Click = [this] {
    if (alSeguir) alSeguir();
    Hide();
    FormInstance<frmDos>::Get().ShowModal();
  };
  cmdFalla.Click = [] { throw RuntimeError(ErrorNumber::ObjectNotSet); };
}

frmDos::frmDos() : Form("frmDos") {
  cmdVolver.Click = [this] {
    Unload();
    FormInstance<frmUno>::Get().ShowInTurn();
  };
  cmdFalla.Click = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
}

GuionTest::GuionTest() {
  frmPrueba::conexion = &centro;
  frmPrueba::alPulsar = nullptr;
  module.ObtenerDatos = [this](const auto& handedIn) { session = handedIn; };
  module.ActivarFormulario = [](std::uint8_t nodo) {
    if (nodo == 1) FormInstance<frmPrueba>::Get().ShowModal();
    if (nodo == 2) FormInstance<frmUno>::Get().ShowModal();
  };
}

std::vector<std::string> GuionTest::Play(const std::string& script) {
  std::istringstream text(script);
  std::ostringstream out;
  guion::EventPrinter events(out);
  guion::Host host(options, {centro, borrado, entrada, otra}, module, events);
  status = guion::Guion(guion::ParseScript(text), host, events).Play();
  std::istringstream printed(out.str());
  Lines lines;
  for (std::string line; std::getline(printed, line);)
    if (echo || !line.starts_with("> ")) lines.push_back(line);
  return lines;
}

std::vector<std::string> GuionTest::PlayIn(const std::string& script) {
  const auto opening = Play("nodo 1").size();
  auto lines = Play("nodo 1\n" + script);
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(opening));
  return lines;
}

}  // namespace quorvane::test
