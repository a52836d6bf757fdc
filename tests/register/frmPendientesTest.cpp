#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

constexpr const char* kRefusal =
    R"(exclamacion "Zendria Escuela" "Debe seleccionar un tipo de enseñanza, curso y sección")";

using frmPendientesTest = RegisterTest;

TEST_F(frmPendientesTest, OffersTheKindsOfTheCentreButTheReservedOnes) {
  const auto run = Run("nodo 123\n" + kSee + kCancel);
  EXPECT_THAT(run.lines,
              ElementsAre("> nodo 123", "carga frmPendientes",
                          "host ZendriaApi.cCentroApi.marcar_Obligatorios", Sent(Kinds(1)),
                          "muestra frmPendientes", "> ver", StartsWith("ver {"),
                          "> pulsar cmdCancelar", "descarga frmPendientes", "vuelve 123"));
  ExpectTexts(run, "Alumnos con materias pendientes",
              {"Label1=Tipo de Enseñanza:", "Label2=Curso:", "Label3=Sección:",
               "cmdAceptar=Siguiente >", "cmdCancelar=Salir"});
  EXPECT_EQ(View(run, "cboTEnsenanza"),
            R"({"tipo":"ComboBox","visible":true,"activo":true,"indice":-1,)"
            R"("entradas":[["ESO",3],["Bachillerato",4]]})");
}

TEST_F(frmPendientesTest, EachChoiceFillsTheNextList) {
  const auto run =
      Run("nodo 123\nelegir cboTEnsenanza \"ESO\"\nelegir cboCurso \"1º ESO\"\n" + kSee);
  EXPECT_THAT(run.After("elegir cboTEnsenanza \"ESO\""), ElementsAre(Sent(Courses(3))));
  EXPECT_THAT(run.After("elegir cboCurso \"1º ESO\""), ElementsAre(Sent(Sections(31))));
  EXPECT_EQ(View(run, "cboCurso", "entradas"), R"([["1º ESO",31],["2º ESO",32],["3º ESO",33]])");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",311],["B",312]])");
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "-1");
}

TEST_F(frmPendientesTest, ACentreWithTheReservedKindsAloneCanOnlyBeLeft) {
  ScriptOptions options;
  options.centro = 2;
  const auto run = Run("nodo 123\n" + kSee + kAccept + kCancel, options);
  EXPECT_EQ(View(run, "cboTEnsenanza", "entradas"), "[]");
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("pitido", std::string("mensaje ") + kRefusal));
  EXPECT_THAT(run.After("pulsar cmdCancelar"), ElementsAre("descarga frmPendientes", "vuelve 123"));
}

TEST_F(frmPendientesTest, AnotherKindLeavesTheSectionsOfTheOldCourseAndIsRefused) {
  const auto run = Run(ChooseSection(321) + "elegir cboTEnsenanza =4\n" + kSee + kAccept);
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",321]])");
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "0");
  EXPECT_EQ(View(run, "cboCurso", "indice"), "-1");
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(kRefusal));
  EXPECT_THAT(run.Of("oculta"), IsEmpty());
}

TEST_F(frmPendientesTest, AnotherCourseClearsTheSectionsAndIsRefusedUntilOneIsChosen) {
  const auto run = Run(ChooseSection(321) + "elegir cboCurso =33\n" + kSee + kAccept +
                       "elegir cboSeccion =331\n" + kAccept);
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "-1");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",331]])");
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(kRefusal));
  EXPECT_THAT(run.Of("oculta"), ElementsAre("frmPendientes"));
  EXPECT_THAT(run.Of("muestra"), ElementsAre("frmPendientes", "frmAlumnoPendiente"));
}

TEST_F(frmPendientesTest, ChoosingTheSameCourseAgainReadsItsSectionsAgain) {
  const auto run =
      Run("nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\n"
          "sql \"UPDATE Seccion SET Descripcion='Z' WHERE IDSeccion=321\"\n"
          "elegir cboCurso =32\n" +
          kSee);
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["Z",321]])");
}

TEST_F(frmPendientesTest, IsHiddenWhileTheRegisterIsOpenAndEndsWithIt) {
  const auto run = Run(kOpen + kCancel + "nodo 123\n" + kSee);
  EXPECT_THAT(run.After("pulsar cmdCancelar"), ElementsAreArray(kLeft));
  // A fresh form the next time.
  EXPECT_EQ(View(run, "cboTEnsenanza", "indice"), "-1");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), "[]");
}

TEST_F(frmPendientesTest, NullNamesAreEmptyTexts) {
  school.Sql(
      "UPDATE TipoEnsenanza SET Nombre=NULL WHERE IDTipoEnsenanza=3;"
      "UPDATE Curso SET Descripcion=NULL WHERE IDCurso=32;"
      "UPDATE Seccion SET Descripcion=NULL WHERE IDSeccion=321");
  const auto run = Run(kOpen + kCancel);
  EXPECT_EQ(run.status, 0) << run.Text();
}

}  // namespace
}  // namespace quorvane::test
