#include "tests/guion/GuionTest.h"

namespace quorvane::test {
namespace {

class RefusalTest : public GuionTest {
 protected:
  /// That each of those commands, behind these, is refused for its reason.
  struct Refused {
    std::string command;
    std::string reason;
  };
  void ExpectRefused(const std::vector<Refused>& all, const std::string& before = "") {
    for (const auto& [command, reason] : all)
      EXPECT_EQ(PlayIn(before + command), Lines{"rechazo " + command + ": " + reason});
  }
};

TEST_F(RefusalTest, WithoutAForm) {
  for (const auto* command :
       {"elegir cboCurso #0", "marcar chkVer 1", "pulsar cmdAceptar", "doble lstAlumnos",
        "fila msgFilas 1", "editar rtvNotas 1 1 nada", "lista rtvNotas 1 1", "pestana tabFichas 1",
        "escribir txtNombre a", "tecla 13", "tamano 1 1", "cerrar", "ver"}) {
    const auto line = "rechazo " + std::string(command) + ": no hay ningún formulario abierto";
    EXPECT_EQ(Play(command), Lines{line});
    EXPECT_EQ(status, 0);
  }
}

TEST_F(RefusalTest, WhatNobodyCanDoInAForm) {
  ExpectRefused({{"nodo 11", "ya hay un formulario abierto"},
                 {"tamano -1 100", "una ventana no puede medir menos que nada"},
                 {"pulsar cmdNadie", "frmPrueba no tiene ningún control cmdNadie"},
                 {"pestana tabFichas 0", "no hay ninguna pestaña 0"},
                 {"pestana tabFichas 3", "no hay ninguna pestaña 3"},
                 // They stand on such a frame.
                 {"pulsar cmdOculto", "cmdOculto está oculto"},
                 {"pulsar cmdInactivo", "cmdInactivo está deshabilitado"}});
}

TEST_F(RefusalTest, AHiddenOrDisabledControl) {
  frmPrueba::alPulsar = [] {
    auto& form = FormInstance<frmPrueba>::Get();
    form.cmdAceptar.Enabled(false);
    form.cboCurso.Visible(false);
  };
  EXPECT_EQ(
      PlayIn("pulsar cmdAccion\npulsar cmdAceptar\nelegir cboCurso #0\ntecla 13"),
      (Lines{"rechazo pulsar cmdAceptar: cmdAceptar está deshabilitado",
             "rechazo elegir cboCurso #0: cboCurso está oculto", "sql centro suceso KeyDown 13"}));
}

TEST_F(RefusalTest, EverythingOnADisabledFormButToLook) {
  frmPrueba::alPulsar = [] { FormInstance<frmPrueba>::Get().Enabled(false); };
  EXPECT_THAT(
      PlayIn("pulsar cmdAccion\ncerrar\npulsar cmdAceptar\nver"),
      ElementsAre("rechazo cerrar: frmPrueba está deshabilitado",
                  "rechazo pulsar cmdAceptar: frmPrueba está deshabilitado", StartsWith("ver {")));
}

TEST_F(RefusalTest, AControlOfAnotherKind) {
  ExpectRefused({{"elegir cmdAceptar #0", "cmdAceptar no es una lista"},
                 {"marcar cmdAceptar 1", "cmdAceptar no es una casilla"},
                 {"pulsar chkVer", "chkVer no es un botón"},
                 {"fila chkVer 1", "chkVer no es una rejilla"},
                 {"lista msgFilas 1 1", "msgFilas no es una rejilla de notas"},
                 {"pestana chkVer 1", "chkVer no es una tira de pestañas"},
                 {"escribir chkVer a", "chkVer no es un cuadro de texto"},
                 {"doble cboCurso", "cboCurso no responde al doble clic"}});
}

TEST_F(RefusalTest, AnEntryThatIsntThere) {
  for (const auto* entry : {"#3", "#-1", "=40", "\"2º ESO\"", "\"\"", "nada"}) {
    const auto command = "elegir cboCurso " + std::string(entry);
    EXPECT_THAT(PlayIn(command),
                ElementsAre(StartsWith("rechazo " + command + ": no hay ninguna entrada ")));
  }
}

TEST_F(RefusalTest, ADoubleClickOnNothing) {
  ExpectRefused({{"doble lstAlumnos", "no hay ninguna entrada elegida"}});
  frmPrueba::alPulsar = [] { FormInstance<frmPrueba>::Get().msgFilas.Rows(0); };
  ExpectRefused({{"doble msgFilas", "no hay ninguna fila"}}, "pulsar cmdAccion\n");
}

TEST_F(RefusalTest, CellsThatNobodySees) {
  ExpectRefused({{"fila msgFilas 3", "no hay ninguna fila 3"},
                 {"fila msgFilas -1", "no hay ninguna fila -1"},
                 {"fila msgFilas 0", "la fila 0 es fija"},
                 {"fila msgFilas 1 1", "la columna 1 no se ve"},
                 {"editar rtvNotas 1 2 nada", "la columna 2 no se ve"},
                 {"lista rtvNotas 1 2", "la columna 2 no se ve"},
                 {"lista rtvNotas 2 1", "no hay ninguna fila 2"},
                 {"editar rtvNotas 1 3 nada", "no hay ninguna columna 3"}});
}

TEST_F(RefusalTest, WhatIsLeftOfATextWhenTheBoxGoes) {
  frmPrueba::alPulsar = [] {
    auto& form = FormInstance<frmPrueba>::Get();
    form.txtNombre.Change = [&form] { form.txtNombre.Enabled(false); };
  };
  ExpectRefused({{"escribir txtNombre ab", "ya no se puede seguir escribiendo"}},
                "pulsar cmdAccion\n");
}

TEST_F(RefusalTest, AnEditWhoseGridGoesAtItsBeginning) {
  frmPrueba::alPulsar = [] {
    auto& form = FormInstance<frmPrueba>::Get();
    form.rtvNotas.InicioEdicion = [&form] { form.rtvNotas.Visible(false); };
  };
  ExpectRefused({{"editar rtvNotas 1 1 nada", "la celda ya no se puede editar"}},
                "pulsar cmdAccion\n");
}

}  // namespace
}  // namespace quorvane::test
