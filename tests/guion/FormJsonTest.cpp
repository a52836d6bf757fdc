#include "adapters/guion/player/FormJson.h"
#include "tests/guion/GuionTest.h"

namespace quorvane::test {
namespace {

class FormJsonTest : public GuionTest {};

TEST_F(FormJsonTest, HasAllControlsInTheirOrder) {
  const auto lines = PlayIn("elegir cboCurso #1\nver");
  EXPECT_EQ(
      lines.back(),
      R"_(ver {"formulario":"frmPrueba","titulo":"Prueba nº 1","ancho":6000,"alto":4000,"controles":{)_"
      R"_("cboCurso":{"tipo":"ComboBox","visible":true,"activo":true,"indice":1,)_"
      R"_("entradas":[["1º ESO",10],["#1",20],["1º ESO",30]]},)_"
      R"_("lstAlumnos":{"tipo":"ListBox","visible":true,"activo":true,"indice":-1,)_"
      R"_("entradas":[["Gil",5],["nada",-6]]},)_"
      R"_("cmdAceptar":{"tipo":"CommandButton","visible":true,"activo":true,"texto":"&Aceptar"},)_"
      R"_("cmdCancelar":{"tipo":"CommandButton","visible":true,"activo":true,"texto":""},)_"
      R"_("cmdAccion":{"tipo":"CommandButton","visible":true,"activo":true,"texto":""},)_"
      R"_("chkVer":{"tipo":"CheckBox","visible":true,"activo":true,"texto":"Ver todo","valor":0},)_"
      R"_("txtNombre":{"tipo":"TextBox","visible":true,"activo":true,"texto":""},)_"
      R"_("tabFichas":{"tipo":"TabStrip","visible":true,"activo":true,)_"
      R"_("pestanas":["Uno","Dos"],"indice":1},)_"
      R"_("msgFilas":{"tipo":"MSFlexGrid","visible":true,"activo":true,"fila":1,"columna":0,)_"
      R"_("fijas":1,"anchos":[960,0],"celdas":[["",""],["",""],["",""]],"datos":[0,0,77]},)_"
      R"_("rtvNotas":{"tipo":"Retivo","visible":true,"activo":true,"fila":1,"columna":0,)_"
      R"_("fijas":1,"anchos":[960,960,0],"celdas":[["","",""],["","",""]]},)_"
      R"_("lblTexto":{"tipo":"Label","visible":true,"activo":true,"texto":"\"Ñu\""},)_"
      R"_("aniOcupado":{"tipo":"Animation","visible":true,"activo":true},)_"
      R"_("fraTab(0)":{"tipo":"Frame","visible":false,"activo":true,"texto":""},)_"
      R"_("fraTab(1)":{"tipo":"Frame","visible":true,"activo":false,"texto":""},)_"
      R"_("cmdOculto":{"tipo":"CommandButton","visible":true,"activo":true,"texto":""},)_"
      R"_("cmdInactivo":{"tipo":"CommandButton","visible":true,"activo":true,"texto":""}}})_");
}

TEST_F(FormJsonTest, BytesThatAreNoUtf8DontStopIt) {
  Form form("frmX");
  form.Caption("a\xF1o");
  EXPECT_EQ(guion::FormJson(form),
            "{\"formulario\":\"frmX\",\"titulo\":\"a\xEF\xBF\xBDo\",\"ancho\":0,\"alto\":0,"
            "\"controles\":{}}");
}

}  // namespace
}  // namespace quorvane::test
