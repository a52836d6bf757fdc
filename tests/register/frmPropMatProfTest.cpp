#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Row 3 of the page "Materias" is "Lengua (1º ESO - A)", 3111.
const std::string kTeacher = kOpen + "pestana TabDatos 2\nfila msgMaterias 3\npulsar cmdPropMat\n";
const std::string kAccept = "pulsar cmdAceptar\n";
const std::string kApi = "host ZendriaApi.cCentroApi.";
const std::string kSearch = "host ZendriaBuscar.CAsignardatos.";

std::string Choose(int personal) {
  return "docente " + std::to_string(personal) + "\npulsar cmdNProfesor\n";
}

std::string PersonStatement(int personal) {
  return "sql centro SELECT IDPersonal,Apellido1,Apellido2,Nombre FROM Personal WHERE IDPersonal=" +
         std::to_string(personal);
}

std::vector<std::string> TeacherWrites(const ScriptResult& run) {
  std::vector<std::string> writes;
  for (const auto& statement : run.Sql())
    if (statement.starts_with("INSERT INTO Profesor_Pte") ||
        statement.starts_with("UPDATE Profesor_Pte"))
      writes.push_back(statement);
  return writes;
}

TEST(frmPropMatProfTest, ShowsTheRowAndLetsTheHostShortenIt) {
  const SmallSchool school;
  school.Profesor(1, 3111);
  const auto run = RunScript(school, kTeacher + "ver\n");
  EXPECT_THAT(
      run.After("pulsar cmdPropMat"),
      ElementsAre("carga frmPropMatProf", kApi + "marcar_Obligatorios", kApi + "acortartextolabel",
                  kApi + "acortartextolabel", "muestra frmPropMatProf"));
  EXPECT_EQ(View(run, "", "titulo"), "\"Propiedades de la Materia\"");
  EXPECT_EQ(View(run, "Label1", "texto"), "\"Materia\"");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Profesor\"");
  EXPECT_EQ(View(run, "lblMateria", "texto"), "\"Lengua (1º ESO - A)\"");
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"Ruiz Soto, Ana\"");
  EXPECT_EQ(View(run, "cmdAceptar", "texto"), "\"Aceptar\"");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Cancelar\"");
}

TEST(frmPropMatProfTest, ADoubleClickOnTheSubjectOpensItToo) {
  const SmallSchool school;
  const auto run =
      RunScript(school, kOpen + "pestana TabDatos 2\nfila msgMaterias 1\ndoble msgMaterias\nver\n");
  EXPECT_EQ(View(run, "lblMateria", "texto"), "\"Francés (1º ESO - A)\"");
}

TEST(frmPropMatProfTest, TheSearchGivesTheTeacher) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kTeacher + Choose(2) + "ver\n" + kAccept + "ver\n" + kAccept);
  EXPECT_THAT(run.After("pulsar cmdNProfesor"),
              ElementsAre(kSearch + "pasarconexiones", kSearch + "ObtenerDatos", kSearch + "Buscar",
                          PersonStatement(2), kApi + "acortartextolabel"));
  EXPECT_THAT(run.Of("ver").front(), HasSubstr(R"("texto":"Gil Mora, Luis")"));
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              HasSubstr(R"x(["Lengua (1º ESO - A)","Gil Mora, Luis"])x"));
  EXPECT_THAT(TeacherWrites(run),
              ElementsAre("UPDATE Profesor_Pte SET codProfesor=2 WHERE codMatDet=3111"));
  EXPECT_THAT(school.Rows("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=3111"),
              ElementsAre("2"));
}

TEST(frmPropMatProfTest, CancellingTheSearchLeavesLabelAndTeacher) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Sql("UPDATE Profesor_Pte SET CodProfesor=1 WHERE CodMatDet=3111");
  for (const auto nobody : {0, -1}) {
    auto script = kTeacher + Choose(nobody);
    script.append("ver\n").append(kAccept).append(kAccept);
    const auto run = RunScript(school, script);
    EXPECT_THAT(run.After("pulsar cmdNProfesor"), Contains(PersonStatement(nobody)));
    EXPECT_THAT(run.Of("mensaje"), IsEmpty());
    EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"Ruiz Soto, Ana\"");
    EXPECT_THAT(TeacherWrites(run), IsEmpty());
  }
}

TEST(frmPropMatProfTest, APersonWhoseRowIsMissingIsTeacherUnderTheOldCaption) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kTeacher + Choose(77) + "ver\n" + kAccept + kAccept);
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"\"");
  EXPECT_THAT(TeacherWrites(run),
              ElementsAre("UPDATE Profesor_Pte SET codProfesor=77 WHERE codMatDet=3111"));
}

TEST(frmPropMatProfTest, AFailedStatementIsToldAndChangesNothing) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(
      school, kTeacher + "docente 2\nfallo 1\npulsar cmdNProfesor\nver\n" + kAccept + kAccept);
  EXPECT_THAT(run.After("pulsar cmdNProfesor"),
              ElementsAre(kSearch + "pasarconexiones", kSearch + "ObtenerDatos", kSearch + "Buscar",
                          PersonStatement(2), "pitido",
                          R"(mensaje critico "Zendria Escuela" )"
                          R"("ERROR al consultar la base de datos.\rfallo")"));
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"\"");
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
  EXPECT_THAT(run.Of("error"), IsEmpty());
}

TEST(frmPropMatProfTest, AMissingTableIsToldWithTheEnginesText) {
  const SmallSchool school;
  const auto run = RunScript(school, kTeacher + "sql \"DROP TABLE Personal\"\n" + Choose(2));
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(HasSubstr("\"ERROR al consultar la base de datos.\\r" +
                                                       EngineText("no such table: Personal"))));
}

TEST(frmPropMatProfTest, ADetailWithoutARowIsInsertedWithItsTeacherByTheFirstSave) {
  const SmallSchool school;
  const auto run = RunScript(school, kTeacher + Choose(2) + kAccept + kAccept);
  std::vector<std::string> inserts;
  for (const auto* const values :
       {"0,3113", "0,3114", "2,3111", "0,3112", "0,3116", "0,3115", "0,3123", "0,3121", "0,3122"})
    inserts.push_back("INSERT INTO Profesor_Pte VALUES (" + std::string(values) + ")");
  EXPECT_THAT(TeacherWrites(run), ElementsAreArray(inserts));
}

TEST(frmPropMatProfTest, ADetailWithoutARowTakesEachChangeUntilItIsSaved) {
  const SmallSchool school;
  const auto run = RunScript(school, kTeacher + Choose(2) + kAccept + "pulsar cmdPropMat\n" +
                                         Choose(1) + kAccept + kAccept);
  EXPECT_THAT(TeacherWrites(run), Contains("INSERT INTO Profesor_Pte VALUES (1,3111)"));
}

TEST(frmPropMatProfTest, AClearedTeacherIsWrittenAsZeroAndTheRowRemains) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Sql("UPDATE Profesor_Pte SET CodProfesor=1 WHERE CodMatDet=3111");
  const auto run =
      RunScript(school, kTeacher + "pulsar cmdElimProfesor\nver\n" + kAccept + "ver\n" + kAccept);
  EXPECT_THAT(run.Of("ver").front(), Not(HasSubstr("Ruiz")));
  EXPECT_THAT(View(run, "msgMaterias", "celdas"), HasSubstr(R"x(["Lengua (1º ESO - A)",""])x"));
  EXPECT_THAT(TeacherWrites(run),
              ElementsAre("UPDATE Profesor_Pte SET codProfesor=0 WHERE codMatDet=3111"));
  EXPECT_THAT(school.Rows("SELECT * FROM Profesor_Pte WHERE CodMatDet=3111"),
              ElementsAre("0|3111"));
}

TEST(frmPropMatProfTest, ChangedTwiceTheListShowsTheSecondTeacherAndTheFirstIsSaved) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kTeacher + Choose(2) + kAccept + "pulsar cmdPropMat\n" +
                                         Choose(1) + kAccept + "ver\n" + kAccept);
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              HasSubstr(R"x(["Lengua (1º ESO - A)","Ruiz Soto, Ana"])x"));
  EXPECT_THAT(TeacherWrites(run),
              ElementsAre("UPDATE Profesor_Pte SET codProfesor=2 WHERE codMatDet=3111"));
}

TEST(frmPropMatProfTest, TheSameTeacherChosenAgainTouchesNothing) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Sql("UPDATE Profesor_Pte SET CodProfesor=1 WHERE CodMatDet=3111");
  const auto run = RunScript(
      school, kTeacher + "sql \"UPDATE Personal SET Nombre='Anna' WHERE IDPersonal=1\"\n" +
                  Choose(1) + kAccept + "ver\n" + kAccept);
  EXPECT_THAT(View(run, "msgMaterias", "celdas"), HasSubstr("Ruiz Soto, Ana\""));
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
}

TEST(frmPropMatProfTest, CancellingTouchesNothing) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kTeacher + Choose(2) + "pulsar cmdCancelar\nver\n" + kAccept);
  EXPECT_THAT(run.After("pulsar cmdCancelar"), ElementsAre("descarga frmPropMatProf"));
  EXPECT_THAT(View(run, "msgMaterias", "celdas"), Not(HasSubstr("Gil")));
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
}

TEST(frmPropMatProfTest, ATeacherWhoseRowIsGoneLoadsAsNone) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Sql("UPDATE Profesor_Pte SET CodProfesor=77 WHERE CodMatDet=3111");
  const auto run =
      RunScript(school, kTeacher + "ver\npulsar cmdElimProfesor\n" + kAccept + kAccept);
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"\"");
  // Loaded with number 0, so clearing is no change.
  EXPECT_THAT(TeacherWrites(run), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
