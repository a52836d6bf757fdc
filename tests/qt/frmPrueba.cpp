#include "tests/qt/frmPrueba.h"

namespace quorvane::test {

frmPrueba::frmPrueba(const std::string& name) : Form(name) {
  Draw();
  Fill();
  Wire();
}

void frmPrueba::Draw() {
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

void frmPrueba::Fill() {
  for (const auto* text : {"Primero", "Segundo", "Tercero"}) cboCurso.AddItem(text, 10);
  for (const auto* text : {"Álvarez, Ana", "Bueno, Luis", "Castro, Eva"}) lstLista[0].AddItem(text);
  tabPaginas.AddTab("Una");
  tabPaginas.AddTab("Otra");

  msgRejilla.Cols(4);
  msgRejilla.FixedRows(1);
  msgRejilla.Rows(1);
  const std::array headings{"Materia", "1ª Eval.", "Final", ""};
  for (int col = 0; col < 4; ++col)
    msgRejilla.TextMatrix(0, col, headings[static_cast<std::size_t>(col)]);
  for (const auto* text : {"Lengua (1º ESO)", "Matemáticas (1º ESO)", "Música (2º ESO)"}) {
    msgRejilla.AddItem(text);
    msgRejilla.TextMatrix(msgRejilla.Rows() - 1, 1, "X");
  }
  msgRejilla.ColWidth(0, 2400);
  msgRejilla.ColAlignment(1, 4);
  msgRejilla.ColAlignment(2, 4);
  msgRejilla.ColWidth(3, 0);

  rtvNotas.Cols(4);
  rtvNotas.Rows(1);
  const std::array titles{"Materia", "Nota", "Actitud", ""};
  for (int col = 0; col < 4; ++col)
    rtvNotas.TextMatrix(0, col, titles[static_cast<std::size_t>(col)]);
  for (const auto* text : {"Lengua", "Inglés"}) rtvNotas.AddItem(text);
  rtvNotas.FixedRows(1);
  rtvNotas.ColWidth(0, 1500);
  rtvNotas.ColWidth(3, 0);
  rtvNotas.ListColumns(1, 2);
  rtvNotas.TextMatrix(1, 1, "10");
}

void frmPrueba::Wire() {
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
  cmdAceptar.Click = [this] {
    Log("aceptar");
    Unload();
  };
  cmdCancelar.Click = [this] {
    Log("cancelar");
    Unload();
  };
}

void frmPrueba::Form_Activate() {
  if (OnActivate) OnActivate();
}

void frmPrueba::Form_KeyDown(int& keyCode) {
  if (OnKey) OnKey(keyCode);
}

void frmPrueba::Form_Resize() {
  if (OnResize) OnResize();
}

void frmPrueba::Form_Unload() {
  Log("descarga");
  if (OnUnload) OnUnload();
}

}  // namespace quorvane::test
