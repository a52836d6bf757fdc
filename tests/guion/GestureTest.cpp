#include "tests/guion/GuionTest.h"
#include "tests/guion/TestForms.h"

namespace quorvane::test {
namespace {

class GestureTest : public GuionTest {};

TEST_F(GestureTest, ElegirPicksByTextIndexAndData) {
  EXPECT_EQ(PlayIn("elegir cboCurso \"1º ESO\""), Lines{"sql centro suceso cboCurso 0"});
  EXPECT_EQ(PlayIn("elegir cboCurso #2"), Lines{"sql centro suceso cboCurso 2"});
  EXPECT_EQ(PlayIn("elegir cboCurso =30"), Lines{"sql centro suceso cboCurso 2"});
  EXPECT_EQ(PlayIn("elegir cboCurso \"#1\""), Lines{"sql centro suceso cboCurso 1"});
  EXPECT_EQ(PlayIn("elegir lstAlumnos =-6"), Lines{"sql centro suceso lstAlumnos nada"});
  EXPECT_EQ(PlayIn("elegir lstAlumnos nada"), Lines{"sql centro suceso lstAlumnos nada"});
}

TEST_F(GestureTest, ElegirClicksAgainOnTheEntryThatStands) {
  EXPECT_EQ(PlayIn("elegir cboCurso #0\nelegir cboCurso #0").size(), 2U);
}

TEST_F(GestureTest, AControlIsNamedWithoutRegardToCase) {
  EXPECT_EQ(PlayIn("pulsar CMDACEPTAR"), Lines{"sql centro suceso cmdAceptar"});
}

TEST_F(GestureTest, MarcarClicksOnlyOnAChange) {
  EXPECT_EQ(PlayIn("marcar chkVer 0\nmarcar chkVer 1\nmarcar chkVer 1\nmarcar chkVer 0"),
            (Lines{"sql centro suceso chkVer 1", "sql centro suceso chkVer 0"}));
}

TEST_F(GestureTest, PulsarPressesTheButton) {
  EXPECT_EQ(PlayIn("pulsar cmdAceptar"), Lines{"sql centro suceso cmdAceptar"});
}

TEST_F(GestureTest, DobleOnTheSelectedEntryAndOnTheCurrentRow) {
  EXPECT_EQ(PlayIn("elegir lstAlumnos #0\ndoble lstAlumnos"),
            (Lines{"sql centro suceso lstAlumnos Gil", "sql centro suceso lstAlumnos doble"}));
  EXPECT_EQ(PlayIn("fila msgFilas 2\ndoble msgFilas"), Lines{"sql centro suceso msgFilas 2"});
}

TEST_F(GestureTest, FilaMovesTheCurrentCellWithoutAnEvent) {
  const auto lines = PlayIn("fila msgFilas 2\nver\nfila rtvNotas 1 1\nver");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_NE(lines[0].find("\"msgFilas\":{\"tipo\":\"MSFlexGrid\",\"visible\":true,\"activo\":true,"
                          "\"fila\":2,\"columna\":0"),
            std::string::npos);
  EXPECT_NE(lines[1].find("\"fila\":1,\"columna\":1,\"fijas\":1,\"anchos\":[960,960,0]"),
            std::string::npos);
}

/// Fills the grid with rows of these data, the first of which is current then.
void FillAgain(std::initializer_list<int> rows) {
  auto& grid = FormInstance<frmPrueba>::Get().msgFilas;
  grid.Rows(1);
  for (const auto data : rows) {
    grid.AddItem("");
    grid.RowData(grid.Rows() - 1, data);
  }
}

TEST_F(GestureTest, TheChosenRowIsChosenAgainWhenADialogReturns) {
  const auto row = [this](const std::string& script) {
    const auto view = PlayIn(script + "ver").back();
    const auto from = view.find("\"fila\":") + 7;
    return view.substr(from, view.find(',', from) - from);
  };
  frmPrueba::alPulsar = [] {
    FormInstance<frmDos>::Get().ShowModal();
    FillAgain({5, 6, 77});
  };
  EXPECT_EQ(row("fila msgFilas 2\npulsar cmdAccion\ncerrar\n"), "3");
  frmPrueba::alPulsar = [] { FillAgain({5, 6, 77}); };
  EXPECT_EQ(row("fila msgFilas 2\npulsar cmdAccion\n"), "1") << "without a dialog";
}

TEST_F(GestureTest, NothingIsToldOfTheRowThatIsChosenAgain) {
  frmPrueba::alPulsar = [] {
    FormInstance<frmDos>::Get().ShowModal();
    FillAgain({5, 77});
  };
  EXPECT_EQ(PlayIn("fila msgFilas 2\npulsar cmdAccion\ncerrar"),
            (Lines{"carga frmDos", "muestra frmDos", "descarga frmDos"}));
}

TEST_F(GestureTest, EditarBeginsPicksAndEnds) {
  EXPECT_EQ(
      PlayIn("editar rtvNotas 1 1 \"Notable\""),
      (Lines{"sql centro suceso InicioEdicion 1 1", "sql centro suceso FinEdicion 1 Notable"}));
  EXPECT_EQ(PlayIn("editar rtvNotas 1 1 =0"),
            (Lines{"sql centro suceso InicioEdicion 1 1", "sql centro suceso FinEdicion 0  "}));
  EXPECT_EQ(PlayIn("editar rtvNotas 1 1 nada"),
            (Lines{"sql centro suceso InicioEdicion 1 1", "sql centro suceso FinEdicion -1 "}));
}

TEST_F(GestureTest, EditarGivesUpWithoutAnEndWhenTheListHasNoSuchEntry) {
  EXPECT_EQ(PlayIn("editar rtvNotas 1 1 \"nada\""),
            (Lines{"sql centro suceso InicioEdicion 1 1",
                   "rechazo editar rtvNotas 1 1 \"nada\": no hay ninguna entrada nada"}));
}

TEST_F(GestureTest, ListaPrintsWhatTheHandlerFilledAndEndsNothing) {
  EXPECT_EQ(PlayIn("lista rtvNotas 1 1"),
            (Lines{"sql centro suceso InicioEdicion 1 1", "lista [[\" \",0],[\"Notable\",7]]"}));
  EXPECT_EQ(PlayIn("lista rtvNotas 1 0"),
            (Lines{"sql centro suceso InicioEdicion 1 0", "lista []"}));
}

TEST_F(GestureTest, PestanaSelectsFromOne) {
  EXPECT_EQ(PlayIn("pestana tabFichas 2"), Lines{"sql centro suceso tabFichas 2"});
}

TEST_F(GestureTest, EscribirTypesKeyByKey) {
  EXPECT_EQ(PlayIn("escribir txtNombre \"a1ñ\""),
            (Lines{"sql centro suceso txtNombre a", "sql centro suceso txtNombre añ"}));
  EXPECT_EQ(PlayIn("escribir txtNombre \"\""), Lines{});
}

TEST_F(GestureTest, TeclaGoesToTheFormFirst) {
  EXPECT_EQ(PlayIn("tecla 40"), Lines{"sql centro suceso KeyDown 40"});
}

TEST_F(GestureTest, EnterAndEscPressTheirButtons) {
  EXPECT_EQ(PlayIn("tecla 13"),
            (Lines{"sql centro suceso KeyDown 13", "sql centro suceso cmdAceptar"}));
  EXPECT_EQ(PlayIn("tecla 27"),
            (Lines{"sql centro suceso KeyDown 27", "sql centro suceso cmdCancelar"}));
}

TEST_F(GestureTest, TamanoResizesTheForm) {
  EXPECT_EQ(PlayIn("tamano 9000 4000\ntamano 9000 4000"), Lines{"sql centro suceso Resize 9000"});
}

TEST_F(GestureTest, CerrarUnloadsTheForm) {
  EXPECT_EQ(PlayIn("cerrar"),
            (Lines{"descarga frmPrueba", "sql centro suceso Unload", "vuelve 1"}));
}

TEST_F(GestureTest, EachCommandIsEchoedAsRead) {
  echo = true;
  EXPECT_EQ(Play("  hoy   \"\"   # vacío"), Lines{"> hoy   \"\""});
  EXPECT_EQ(Play("hoy\t\"\"\t"), Lines{"> hoy\t\"\""});
}

}  // namespace
}  // namespace quorvane::test
