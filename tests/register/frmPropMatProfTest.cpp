#include "tests/register/RegisterTest.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

// Row 3 of the page "Materias" is "Lengua (1º ESO - A)", 3111.
const std::string kTeacher = kOpen + "pestana TabDatos 2\nfila msgMaterias 3\npulsar cmdPropMat\n";
const std::string kApi = "host ZendriaApi.cCentroApi.";
const std::string kSearch = "host ZendriaBuscar.CAsignardatos.";

std::string ChooseTeacher(int personal) {
  return "docente " + std::to_string(personal) + "\npulsar cmdNProfesor\n";
}

Lines TeacherWrites(const ScriptResult& run) {
  return Beginning(run, {"INSERT INTO Profesor_Pte", "UPDATE Profesor_Pte"});
}

using frmPropMatProfTest = RegisterTest;

/// Where all rows for teachers exist, and none is inserted.
class frmPropMatProfSavingTest : public RegisterWithRowsTest {
 protected:
  /// "Lengua" has that teacher.
  void Has(int personal) const { school.Sql(UpdateTeacher(personal, 3111)); }
};

TEST_F(frmPropMatProfTest, ShowsTheRowAndLetsTheHostShortenIt) {
  school.Profesor(1, 3111);
  const auto run = Run(kTeacher + kSee);
  EXPECT_THAT(
      run.After("pulsar cmdPropMat"),
      ElementsAre("carga frmPropMatProf", kApi + "marcar_Obligatorios", kApi + "acortartextolabel",
                  kApi + "acortartextolabel", "muestra frmPropMatProf"));
  ExpectTexts(run, "Propiedades de la Materia",
              {"Label1=Materia", "Label2=Profesor", "lblMateria=Lengua (1º ESO - A)",
               "lblProfesor=Ruiz Soto, Ana", "cmdAceptar=Aceptar", "cmdCancelar=Cancelar"});
}

TEST_F(frmPropMatProfTest, ADoubleClickOnTheSubjectOpensItToo) {
  const auto run =
      Run(kOpen + "pestana TabDatos 2\nfila msgMaterias 1\ndoble msgMaterias\n" + kSee);
  EXPECT_EQ(View(run, "lblMateria", "texto"), "\"Francés (1º ESO - A)\"");
}

TEST_F(frmPropMatProfSavingTest, TheSearchGivesTheTeacher) {
  const auto run = Run(kTeacher + ChooseTeacher(2) + kSee + kAccept + kSee + kAccept);
  EXPECT_THAT(run.After("pulsar cmdNProfesor"),
              ElementsAre(kSearch + "pasarconexiones", kSearch + "ObtenerDatos", kSearch + "Buscar",
                          Sent(Person(2)), kApi + "acortartextolabel"));
  EXPECT_THAT(run.Of("ver").front(), HasSubstr(R"("texto":"Gil Mora, Luis")"));
  EXPECT_THAT(Materias(run), HasSubstr(R"x(["Lengua (1º ESO - A)","Gil Mora, Luis"])x"));
  EXPECT_THAT(TeacherWrites(run), ElementsAre(UpdateTeacher(2, 3111)));
  EXPECT_THAT(school.Rows("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=3111"),
              ElementsAre("2"));
}

TEST_F(frmPropMatProfSavingTest, CancellingTheSearchLeavesLabelAndTeacher) {
  Has(1);
  for (const auto nobody : {0, -1}) {
    const auto run = Run(kTeacher + ChooseTeacher(nobody) + kSee + kAccept + kAccept);
    EXPECT_THAT(run.After("pulsar cmdNProfesor"), Contains(Sent(Person(nobody))));
    EXPECT_THAT(run.Of("mensaje"), IsEmpty());
    EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"Ruiz Soto, Ana\"");
    EXPECT_THAT(TeacherWrites(run), IsEmpty());
  }
}

TEST_F(frmPropMatProfSavingTest, APersonWhoseRowIsMissingIsTeacherUnderTheOldCaption) {
  const auto run = Run(kTeacher + ChooseTeacher(77) + kSee + kAccept + kAccept);
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"\"");
  EXPECT_THAT(TeacherWrites(run), ElementsAre(UpdateTeacher(77, 3111)));
}

TEST_F(frmPropMatProfSavingTest, AFailedStatementIsToldAndChangesNothing) {
  const auto run =
      Run(kTeacher + "docente 2\nfallo 1\npulsar cmdNProfesor\n" + kSee + kAccept + kAccept);
  EXPECT_THAT(run.After("pulsar cmdNProfesor"),
              ElementsAre(kSearch + "pasarconexiones", kSearch + "ObtenerDatos", kSearch + "Buscar",
                          Sent(Person(2)), "pitido",
                          R"(mensaje critico "Zendria Escuela" )"
                          R"("ERROR al consultar la base de datos.\rfallo")"));
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"\"");
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
  EXPECT_THAT(run.Of("error"), IsEmpty());
}

TEST_F(frmPropMatProfTest, AMissingTableIsToldWithTheEnginesText) {
  const auto run = Run(kTeacher + "sql \"DROP TABLE Personal\"\n" + ChooseTeacher(2));
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(HasSubstr("\"ERROR al consultar la base de datos.\\r" +
                                                       EngineText("no such table: Personal"))));
}

TEST_F(frmPropMatProfTest, ADetailWithoutARowIsInsertedWithItsTeacherByTheFirstSave) {
  const auto run = Run(kTeacher + ChooseTeacher(2) + kAccept + kAccept);
  Lines inserts;
  for (const auto matDet : {3113, 3114, 3111, 3112, 3116, 3115, 3123, 3121, 3122})
    inserts.push_back(InsertTeacher(matDet == 3111 ? 2 : 0, matDet));
  EXPECT_THAT(TeacherWrites(run), ElementsAreArray(inserts));
}

TEST_F(frmPropMatProfTest, ADetailWithoutARowTakesEachChangeUntilItIsSaved) {
  const auto run = Run(kTeacher + ChooseTeacher(2) + kAccept + "pulsar cmdPropMat\n" +
                       ChooseTeacher(1) + kAccept + kAccept);
  EXPECT_THAT(TeacherWrites(run), Contains(InsertTeacher(1, 3111)));
}

TEST_F(frmPropMatProfSavingTest, AClearedTeacherIsWrittenAsZeroAndTheRowRemains) {
  Has(1);
  const auto run = Run(kTeacher + "pulsar cmdElimProfesor\n" + kSee + kAccept + kSee + kAccept);
  EXPECT_THAT(run.Of("ver").front(), Not(HasSubstr("Ruiz")));
  EXPECT_THAT(Materias(run), HasSubstr(R"x(["Lengua (1º ESO - A)",""])x"));
  EXPECT_THAT(TeacherWrites(run), ElementsAre(UpdateTeacher(0, 3111)));
  EXPECT_THAT(school.Rows("SELECT * FROM Profesor_Pte WHERE CodMatDet=3111"),
              ElementsAre("0|3111"));
}

TEST_F(frmPropMatProfSavingTest, ChangedTwiceTheListShowsTheSecondTeacherAndTheFirstIsSaved) {
  const auto run = Run(kTeacher + ChooseTeacher(2) + kAccept + "pulsar cmdPropMat\n" +
                       ChooseTeacher(1) + kAccept + kSee + kAccept);
  EXPECT_THAT(Materias(run), HasSubstr(R"x(["Lengua (1º ESO - A)","Ruiz Soto, Ana"])x"));
  EXPECT_THAT(TeacherWrites(run), ElementsAre(UpdateTeacher(2, 3111)));
}

TEST_F(frmPropMatProfSavingTest, TheSameTeacherChosenAgainTouchesNothing) {
  Has(1);
  const auto run = Run(kTeacher + "sql \"UPDATE Personal SET Nombre='Anna' WHERE IDPersonal=1\"\n" +
                       ChooseTeacher(1) + kAccept + kSee + kAccept);
  EXPECT_THAT(Materias(run), HasSubstr("Ruiz Soto, Ana\""));
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
}

TEST_F(frmPropMatProfSavingTest, CancellingTouchesNothing) {
  const auto run = Run(kTeacher + ChooseTeacher(2) + kCancel + kSee + kAccept);
  EXPECT_THAT(run.After("pulsar cmdCancelar"), ElementsAre("descarga frmPropMatProf"));
  EXPECT_THAT(Materias(run), Not(HasSubstr("Gil")));
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
}

TEST_F(frmPropMatProfSavingTest, ATeacherWhoseRowIsGoneLoadsAsNone) {
  Has(77);
  const auto run = Run(kTeacher + kSee + "pulsar cmdElimProfesor\n" + kAccept + kAccept);
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"\"");
  // Loaded with number 0, so clearing is no change.
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
