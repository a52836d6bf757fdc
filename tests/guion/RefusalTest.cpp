#include "tests/guion/GuionTest.h"
#include "tests/guion/TestForms.h"

namespace quorvane::test {
namespace {

class RefusalTest : public GuionTest {};

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

TEST_F(RefusalTest, ANodeWhileAFormIsOpen) {
  EXPECT_EQ(PlayIn("nodo 11"), Lines{"rechazo nodo 11: ya hay un formulario abierto"});
}

TEST_F(RefusalTest, AControlThatIsntThere) {
  EXPECT_EQ(PlayIn("pulsar cmdNadie"),
            Lines{"rechazo pulsar cmdNadie: frmPrueba no tiene ningún control cmdNadie"});
}

TEST_F(RefusalTest, AControlOnAHiddenOrDisabledFrame) {
  EXPECT_EQ(PlayIn("pulsar cmdOculto"), Lines{"rechazo pulsar cmdOculto: cmdOculto está oculto"});
  EXPECT_EQ(PlayIn("pulsar cmdInactivo"),
            Lines{"rechazo pulsar cmdInactivo: cmdInactivo está deshabilitado"});
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
  const auto lines = PlayIn("pulsar cmdAccion\ncerrar\npulsar cmdAceptar\nver");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], "rechazo cerrar: frmPrueba está deshabilitado");
  EXPECT_EQ(lines[1], "rechazo pulsar cmdAceptar: frmPrueba está deshabilitado");
  EXPECT_TRUE(lines[2].starts_with("ver {"));
}

TEST_F(RefusalTest, AControlOfAnotherKind) {
  EXPECT_EQ(PlayIn("elegir cmdAceptar #0"),
            Lines{"rechazo elegir cmdAceptar #0: cmdAceptar no es una lista"});
  EXPECT_EQ(PlayIn("marcar cmdAceptar 1"),
            Lines{"rechazo marcar cmdAceptar 1: cmdAceptar no es una casilla"});
  EXPECT_EQ(PlayIn("pulsar chkVer"), Lines{"rechazo pulsar chkVer: chkVer no es un botón"});
  EXPECT_EQ(PlayIn("fila chkVer 1"), Lines{"rechazo fila chkVer 1: chkVer no es una rejilla"});
  EXPECT_EQ(PlayIn("lista msgFilas 1 1"),
            Lines{"rechazo lista msgFilas 1 1: msgFilas no es una rejilla de notas"});
  EXPECT_EQ(PlayIn("pestana chkVer 1"),
            Lines{"rechazo pestana chkVer 1: chkVer no es una tira de pestañas"});
  EXPECT_EQ(PlayIn("escribir chkVer a"),
            Lines{"rechazo escribir chkVer a: chkVer no es un cuadro de texto"});
  EXPECT_EQ(PlayIn("doble cboCurso"),
            Lines{"rechazo doble cboCurso: cboCurso no responde al doble clic"});
}

TEST_F(RefusalTest, AnEntryThatIsntThere) {
  for (const auto* entry : {"#3", "#-1", "=40", "\"2º ESO\"", "\"\"", "nada"}) {
    const auto lines = PlayIn("elegir cboCurso " + std::string(entry));
    ASSERT_EQ(lines.size(), 1U) << entry;
    EXPECT_TRUE(lines[0].starts_with("rechazo elegir cboCurso " + std::string(entry) +
                                     ": no hay ninguna entrada "))
        << lines[0];
  }
}

TEST_F(RefusalTest, ADoubleClickOnNothing) {
  EXPECT_EQ(PlayIn("doble lstAlumnos"),
            Lines{"rechazo doble lstAlumnos: no hay ninguna entrada elegida"});
  frmPrueba::alPulsar = [] { FormInstance<frmPrueba>::Get().msgFilas.Rows(0); };
  EXPECT_EQ(PlayIn("pulsar cmdAccion\ndoble msgFilas"),
            Lines{"rechazo doble msgFilas: no hay ninguna fila"});
}

TEST_F(RefusalTest, CellsThatNobodySees) {
  EXPECT_EQ(PlayIn("fila msgFilas 3"), Lines{"rechazo fila msgFilas 3: no hay ninguna fila 3"});
  EXPECT_EQ(PlayIn("fila msgFilas -1"), Lines{"rechazo fila msgFilas -1: no hay ninguna fila -1"});
  EXPECT_EQ(PlayIn("fila msgFilas 0"), Lines{"rechazo fila msgFilas 0: la fila 0 es fija"});
  EXPECT_EQ(PlayIn("fila msgFilas 1 1"), Lines{"rechazo fila msgFilas 1 1: la columna 1 no se ve"});
  EXPECT_EQ(PlayIn("editar rtvNotas 1 2 nada"),
            Lines{"rechazo editar rtvNotas 1 2 nada: la columna 2 no se ve"});
  EXPECT_EQ(PlayIn("lista rtvNotas 1 2"),
            Lines{"rechazo lista rtvNotas 1 2: la columna 2 no se ve"});
  EXPECT_EQ(PlayIn("lista rtvNotas 2 1"),
            Lines{"rechazo lista rtvNotas 2 1: no hay ninguna fila 2"});
  EXPECT_EQ(PlayIn("editar rtvNotas 1 3 nada"),
            Lines{"rechazo editar rtvNotas 1 3 nada: no hay ninguna columna 3"});
}

TEST_F(RefusalTest, ATabThatIsntThere) {
  EXPECT_EQ(PlayIn("pestana tabFichas 0"),
            Lines{"rechazo pestana tabFichas 0: no hay ninguna pestaña 0"});
  EXPECT_EQ(PlayIn("pestana tabFichas 3"),
            Lines{"rechazo pestana tabFichas 3: no hay ninguna pestaña 3"});
}

TEST_F(RefusalTest, AWindowBelowNothing) {
  EXPECT_EQ(PlayIn("tamano -1 100"),
            Lines{"rechazo tamano -1 100: una ventana no puede medir menos que nada"});
}

TEST_F(RefusalTest, WhatIsLeftOfATextWhenTheBoxGoes) {
  frmPrueba::alPulsar = [] {
    auto& form = FormInstance<frmPrueba>::Get();
    form.txtNombre.Change = [&form] { form.txtNombre.Enabled(false); };
  };
  EXPECT_EQ(PlayIn("pulsar cmdAccion\nescribir txtNombre ab"),
            Lines{"rechazo escribir txtNombre ab: ya no se puede seguir escribiendo"});
}

TEST_F(RefusalTest, AnEditWhoseGridGoesAtItsBeginning) {
  frmPrueba::alPulsar = [] {
    auto& form = FormInstance<frmPrueba>::Get();
    form.rtvNotas.InicioEdicion = [&form] { form.rtvNotas.Visible(false); };
  };
  EXPECT_EQ(PlayIn("pulsar cmdAccion\neditar rtvNotas 1 1 nada"),
            Lines{"rechazo editar rtvNotas 1 1 nada: la celda ya no se puede editar"});
}

}  // namespace
}  // namespace quorvane::test
