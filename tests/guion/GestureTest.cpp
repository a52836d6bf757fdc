#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/guion/GuionTest.h"

namespace quorvane::test {
namespace {

class GestureTest : public GuionTest {};

struct Gesture {
  const char* name;
  std::string script;
  std::string told;  ///< its lines
};

void PrintTo(const Gesture& gesture, std::ostream* out) { *out << gesture.script; }

class ToldGestureTest : public GestureTest, public testing::WithParamInterface<Gesture> {};

TEST_P(ToldGestureTest, TellsItsEvents) {
  Lines told;
  std::istringstream text(GetParam().told);
  for (std::string line; std::getline(text, line);) told.push_back(line);
  EXPECT_EQ(PlayIn(GetParam().script), told);
}

const std::vector<Gesture> kGestures = {
    {"ElegirByText", "elegir cboCurso \"1º ESO\"", "sql centro suceso cboCurso 0"},
    {"ElegirByIndex", "elegir cboCurso #2", "sql centro suceso cboCurso 2"},
    {"ElegirByData", "elegir cboCurso =30", "sql centro suceso cboCurso 2"},
    {"ElegirATextLikeAnIndex", "elegir cboCurso \"#1\"", "sql centro suceso cboCurso 1"},
    {"ElegirByDataBelowZero", "elegir lstAlumnos =-6", "sql centro suceso lstAlumnos nada"},
    {"ElegirATextNada", "elegir lstAlumnos nada", "sql centro suceso lstAlumnos nada"},
    {"ElegirClicksAgainOnTheEntryThatStands", "elegir cboCurso #0\nelegir cboCurso #0",
     "sql centro suceso cboCurso 0\nsql centro suceso cboCurso 0"},
    {"AControlIsNamedWithoutRegardToCase", "pulsar CMDACEPTAR", "sql centro suceso cmdAceptar"},
    {"MarcarClicksOnlyOnAChange",
     "marcar chkVer 0\nmarcar chkVer 1\nmarcar chkVer 1\nmarcar chkVer 0",
     "sql centro suceso chkVer 1\nsql centro suceso chkVer 0"},
    {"PulsarPressesTheButton", "pulsar cmdAceptar", "sql centro suceso cmdAceptar"},
    {"DobleOnTheSelectedEntry", "elegir lstAlumnos #0\ndoble lstAlumnos",
     "sql centro suceso lstAlumnos Gil\nsql centro suceso lstAlumnos doble"},
    {"DobleOnTheCurrentRow", "fila msgFilas 2\ndoble msgFilas", "sql centro suceso msgFilas 2"},
    {"EditarBeginsPicksAndEnds", "editar rtvNotas 1 1 \"Notable\"",
     "sql centro suceso InicioEdicion 1 1\nsql centro suceso FinEdicion 1 Notable"},
    {"EditarPicksByData", "editar rtvNotas 1 1 =0",
     "sql centro suceso InicioEdicion 1 1\nsql centro suceso FinEdicion 0  "},
    {"EditarPicksNothing", "editar rtvNotas 1 1 nada",
     "sql centro suceso InicioEdicion 1 1\nsql centro suceso FinEdicion -1 "},
    {"EditarGivesUpWithoutAnEndWhenTheListHasNoSuchEntry", "editar rtvNotas 1 1 \"nada\"",
     "sql centro suceso InicioEdicion 1 1\n"
     "rechazo editar rtvNotas 1 1 \"nada\": no hay ninguna entrada nada"},
    {"ListaPrintsWhatTheHandlerFilledAndEndsNothing", "lista rtvNotas 1 1",
     "sql centro suceso InicioEdicion 1 1\nlista [[\" \",0],[\"Notable\",7]]"},
    {"ListaOfNothing", "lista rtvNotas 1 0", "sql centro suceso InicioEdicion 1 0\nlista []"},
    {"PestanaSelectsFromOne", "pestana tabFichas 2", "sql centro suceso tabFichas 2"},
    {"EscribirTypesKeyByKey", "escribir txtNombre \"a1ñ\"",
     "sql centro suceso txtNombre a\nsql centro suceso txtNombre añ"},
    {"EscribirNothing", "escribir txtNombre \"\"", ""},
    {"TeclaGoesToTheFormFirst", "tecla 40", "sql centro suceso KeyDown 40"},
    {"EnterPressesItsButton", "tecla 13",
     "sql centro suceso KeyDown 13\nsql centro suceso cmdAceptar"},
    {"EscPressesItsButton", "tecla 27",
     "sql centro suceso KeyDown 27\nsql centro suceso cmdCancelar"},
    {"TamanoResizesTheFormOnce", "tamano 9000 4000\ntamano 9000 4000",
     "sql centro suceso Resize 9000"},
    {"CerrarUnloadsTheForm", "cerrar", "descarga frmPrueba\nsql centro suceso Unload\nvuelve 1"},
};

INSTANTIATE_TEST_SUITE_P(, ToldGestureTest, testing::ValuesIn(kGestures),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_F(GestureTest, FilaMovesTheCurrentCellWithoutAnEvent) {
  EXPECT_THAT(
      PlayIn("fila msgFilas 2\nver\nfila rtvNotas 1 1\nver"),
      ElementsAre(HasSubstr("\"msgFilas\":{\"tipo\":\"MSFlexGrid\",\"visible\":true,"
                            "\"activo\":true,\"fila\":2,\"columna\":0"),
                  HasSubstr("\"fila\":1,\"columna\":1,\"fijas\":1,\"anchos\":[960,960,0]")));
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

TEST_F(GestureTest, EachCommandIsEchoedAsRead) {
  echo = true;
  EXPECT_EQ(Play("  hoy   \"\"   # vacío"), Lines{"> hoy   \"\""});
  EXPECT_EQ(Play("hoy\t\"\"\t"), Lines{"> hoy\t\"\""});
}

}  // namespace
}  // namespace quorvane::test
