#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kRefusal =
    R"(exclamacion "Zendria Escuela" "Debe seleccionar un tipo de enseñanza, curso y sección")";

TEST(frmPendientesTest, OffersTheKindsOfTheCentreButTheReservedOnes) {
  const SmallSchool school;
  const auto run = RunScript(school, "nodo 123\nver\npulsar cmdCancelar\n");
  EXPECT_THAT(
      run.lines,
      ElementsAre(
          "> nodo 123", "carga frmPendientes", "host ZendriaApi.cCentroApi.marcar_Obligatorios",
          "sql centro SELECT DISTINCT IDTipoEnsenanza, Nombre, orden FROM TipoEnsenanza INNER JOIN "
          "Centro_tipoensenanza ON "
          "Centro_tipoensenanza.CodTipoEnsenanza=TipoEnsenanza.IDTipoEnsenanza WHERE "
          "codtipoensenanza not in (1,2) AND codCentro=1 ORDER BY Orden",
          "muestra frmPendientes", "> ver", testing::StartsWith("ver {"), "> pulsar cmdCancelar",
          "descarga frmPendientes", "vuelve 123"));
  EXPECT_EQ(View(run, "", "titulo"), "\"Alumnos con materias pendientes\"");
  EXPECT_EQ(View(run, "cboTEnsenanza"),
            R"({"tipo":"ComboBox","visible":true,"activo":true,"indice":-1,)"
            R"("entradas":[["ESO",3],["Bachillerato",4]]})");
  EXPECT_EQ(View(run, "Label1", "texto"), "\"Tipo de Enseñanza:\"");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Curso:\"");
  EXPECT_EQ(View(run, "Label3", "texto"), "\"Sección:\"");
  EXPECT_EQ(View(run, "cmdAceptar", "texto"), "\"Siguiente >\"");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Salir\"");
}

TEST(frmPendientesTest, EachChoiceFillsTheNextList) {
  const SmallSchool school;
  const auto run = RunScript(
      school, "nodo 123\nelegir cboTEnsenanza \"ESO\"\nelegir cboCurso \"1º ESO\"\nver\n");
  EXPECT_THAT(run.After("elegir cboTEnsenanza \"ESO\""),
              ElementsAre("sql centro SELECT IDCurso, Descripcion FROM Curso WHERE "
                          "codTipoEnsenanza=3 ORDER BY Orden"));
  EXPECT_THAT(run.After("elegir cboCurso \"1º ESO\""),
              ElementsAre("sql centro SELECT IDSeccion, Descripcion FROM Seccion WHERE codCurso=31 "
                          "ORDER BY Descripcion"));
  EXPECT_EQ(View(run, "cboCurso", "entradas"), R"([["1º ESO",31],["2º ESO",32],["3º ESO",33]])");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",311],["B",312]])");
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "-1");
}

TEST(frmPendientesTest, ACentreWithTheReservedKindsAloneCanOnlyBeLeft) {
  const SmallSchool school;
  ScriptOptions options;
  options.centro = 2;
  const auto run =
      RunScript(school, "nodo 123\nver\npulsar cmdAceptar\npulsar cmdCancelar\n", options);
  EXPECT_EQ(View(run, "cboTEnsenanza", "entradas"), "[]");
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("pitido", std::string("mensaje ") + kRefusal));
  EXPECT_THAT(run.After("pulsar cmdCancelar"), ElementsAre("descarga frmPendientes", "vuelve 123"));
}

TEST(frmPendientesTest, AnotherKindLeavesTheSectionsOfTheOldCourseAndIsRefused) {
  const SmallSchool school;
  const auto run = RunScript(school,
                             "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\n"
                             "elegir cboSeccion =321\nelegir cboTEnsenanza =4\nver\n"
                             "pulsar cmdAceptar\n");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",321]])");
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "0");
  EXPECT_EQ(View(run, "cboCurso", "indice"), "-1");
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(kRefusal));
  EXPECT_THAT(run.Of("oculta"), IsEmpty());
}

TEST(frmPendientesTest, AnotherCourseClearsTheSectionsAndIsRefusedUntilOneIsChosen) {
  const SmallSchool school;
  const auto run = RunScript(school,
                             "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\n"
                             "elegir cboSeccion =321\nelegir cboCurso =33\nver\n"
                             "pulsar cmdAceptar\nelegir cboSeccion =331\npulsar cmdAceptar\n");
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "-1");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",331]])");
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(kRefusal));
  EXPECT_THAT(run.Of("oculta"), ElementsAre("frmPendientes"));
  EXPECT_THAT(run.Of("muestra"), ElementsAre("frmPendientes", "frmAlumnoPendiente"));
}

TEST(frmPendientesTest, ChoosingTheSameCourseAgainReadsItsSectionsAgain) {
  const SmallSchool school;
  const auto run = RunScript(school,
                             "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\n"
                             "sql \"UPDATE Seccion SET Descripcion='Z' WHERE IDSeccion=321\"\n"
                             "elegir cboCurso =32\nver\n");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["Z",321]])");
}

TEST(frmPendientesTest, IsHiddenWhileTheRegisterIsOpenAndEndsWithIt) {
  const SmallSchool school;
  const auto run = RunScript(school, kOpen + "pulsar cmdCancelar\nnodo 123\nver\n");
  EXPECT_THAT(run.After("pulsar cmdCancelar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  // A fresh form the next time.
  EXPECT_EQ(View(run, "cboTEnsenanza", "indice"), "-1");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), "[]");
}

TEST(frmPendientesTest, NullNamesAreEmptyTexts) {
  const SmallSchool school;
  school.Sql(
      "UPDATE TipoEnsenanza SET Nombre=NULL WHERE IDTipoEnsenanza=3;"
      "UPDATE Curso SET Descripcion=NULL WHERE IDCurso=32;"
      "UPDATE Seccion SET Descripcion=NULL WHERE IDSeccion=321");
  const auto run = RunScript(school, kOpen + "pulsar cmdCancelar\n");
  EXPECT_EQ(run.status, 0) << run.Text();
}

}  // namespace
}  // namespace quorvane::test
