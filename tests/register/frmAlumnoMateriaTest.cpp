#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

const std::string kEdit = kOpen + "pulsar cmdPropiedades\n";
const std::string kAccept = "pulsar cmdAceptar\n";

const std::string kEvaluationsStatement =
    "sql centro SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion ORDER BY Final, "
    "Extraordinaria, Orden";

std::string CourseStatement(int matDet) {
  return "sql centro SELECT Curso.Descripcion AS CDescripcion, Seccion.Descripcion AS SDescripcion "
         "FROM MateriaDetalles INNER JOIN (Seccion INNER JOIN Curso ON "
         "Seccion.CodCurso=Curso.IDCurso) ON MateriaDetalles.codSeccion=Seccion.IDSeccion WHERE "
         "IDMateriaDetalles=" +
         std::to_string(matDet);
}

/// Student 1 with "Lengua", "Matemáticas" and "Francés", in this order, the first in evaluation 1.
class frmAlumnoMateriaTest : public testing::Test {
 protected:
  frmAlumnoMateriaTest() {
    GiveRowsToAllMaterias(school);
    school.Registra(321, 1);
    school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
    static_cast<void>(school.Pendiente(1, 3112, 2));
    static_cast<void>(school.Pendiente(1, 3113, 3));
  }

  /// What saving executes after these gestures on the student's subjects.
  [[nodiscard]] std::vector<std::string> SavedAfter(const std::string& gestures) const {
    const auto run = RunScript(school, kEdit + gestures + kAccept + kAccept);
    auto lines = run.After("pulsar cmdAceptar");
    EXPECT_THAT(lines, testing::Contains("vuelve 123")) << run.Text();
    lines.resize(lines.size() - 2);
    return lines;
  }

  static std::vector<std::string> Update(int matDet, int pendiente, int orden) {
    return {"sql centro SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=" +
                std::to_string(matDet) + " AND CodAlumno=1",
            "sql centro UPDATE AlumnoPte_MatDet SET Orden=" + std::to_string(orden) +
                " WHERE IDAlumnoPte_MatDet=" + std::to_string(pendiente)};
  }

  SmallSchool school;
};

TEST_F(frmAlumnoMateriaTest, ShowsTheSubjectsInAMatrixAgainstAllEvaluations) {
  const auto run = RunScript(school, kEdit + "ver\n");
  EXPECT_THAT(
      run.After("pulsar cmdPropiedades"),
      ElementsAre("carga frmAlumnoMateria", kEvaluationsStatement, CourseStatement(3111),
                  CourseStatement(3112), CourseStatement(3113), "muestra frmAlumnoMateria"));
  EXPECT_EQ(View(run, "", "titulo"), "\"Materias Pendientes del Alumno\"");
  EXPECT_EQ(View(run, "Label1", "texto"), "\"Alumno:\"");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Díaz Cano, Marta\"");
  EXPECT_EQ(View(run, "Label3", "texto"), "\"Materias:\"");
  EXPECT_EQ(View(run, "cmdSubir", "texto"), "\"\"");
  EXPECT_EQ(View(run, "cmdBajar", "texto"), "\"\"");
  EXPECT_EQ(View(run, "cmdAgregar", "texto"), "\"Agregar\"");
  EXPECT_EQ(View(run, "cmdEliminar", "texto"), "\"Eliminar\"");
  EXPECT_EQ(View(run, "cmdPropiedades", "texto"), "\"Propiedades\"");
  EXPECT_EQ(View(run, "cmdAceptar", "texto"), "\"Aceptar\"");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Cancelar\"");
  // Each column is as wide as its heading and three blanks, the first as its longest subject.
  EXPECT_EQ(View(run, "msgMaterias"),
            R"({"tipo":"MSFlexGrid","visible":true,"activo":true,"fila":1,"columna":9,"fijas":1,)"
            R"("anchos":[2760,2040,3000,960,1920,1920,1920,1920,1440,0],)"
            R"("celdas":[["Materia","Extraordinaria","Segunda extraordinaria","Final",)"
            R"("Segunda final","1ª Evaluación","2ª Evaluación","3ª Evaluación","Reservada",""],)"
            R"x(["Lengua (1º ESO)","","","","","X","","","","1"],)x"
            R"x(["Matemáticas (1º ESO)","","","","","","","","","2"],)x"
            R"x(["Francés (1º ESO)","","","","","","","","","3"]],"datos":[0,3111,3112,3113]})x");
}

TEST_F(frmAlumnoMateriaTest, AStudentWithoutSubjectsHasButtonsThatDoNothing) {
  school.Sql("DELETE FROM AlumnoPte_MatDet");
  const auto run = RunScript(school, kEdit +
                                         "ver\npulsar cmdSubir\npulsar cmdBajar\n"
                                         "pulsar cmdEliminar\npulsar cmdPropiedades\n"
                                         "doble msgMaterias\n");
  EXPECT_EQ(View(run, "msgMaterias", "anchos"), "[1200,2040,3000,960,1920,1920,1920,1920,1440,0]");
  for (const auto* const command :
       {"pulsar cmdSubir", "pulsar cmdBajar", "pulsar cmdEliminar", "pulsar cmdPropiedades"})
    EXPECT_THAT(run.After(command), IsEmpty()) << command;
}

TEST_F(frmAlumnoMateriaTest, WithoutEvaluationsThereIsTheSubjectAlone) {
  school.Sql("DELETE FROM NumEvaluacion");
  const auto run = RunScript(school, kEdit + "ver\n");
  EXPECT_EQ(View(run, "msgMaterias", "celdas"),
            R"x([["Materia",""],["Lengua (1º ESO)","1"],["Matemáticas (1º ESO)","2"],)x"
            R"x(["Francés (1º ESO)","3"]])x");
  EXPECT_EQ(View(run, "msgMaterias", "anchos"), "[2760,0]");
}

TEST_F(frmAlumnoMateriaTest, SubjectsStandByTheirOrderAndGapsClose) {
  school.Sql(
      "UPDATE AlumnoPte_MatDet SET Orden=200 WHERE CodMatDet=3111;"
      "UPDATE AlumnoPte_MatDet SET Orden=30 WHERE CodMatDet=3113");
  const auto first = RunScript(school, kEdit + "ver\n");
  EXPECT_EQ(View(first, "msgMaterias", "datos"), "[0,3112,3113,3111]");
  // What stood before the renumbering shows until the next reload.
  EXPECT_THAT(View(first, "msgMaterias", "celdas"), EndsWith(R"("200"]])"));
  const auto reloaded =
      RunScript(school, kEdit + "pulsar cmdPropiedades\npulsar cmdCancelar\nver\n");
  EXPECT_EQ(View(reloaded, "msgMaterias", "datos"), "[0,3112,3113,3111]");
  EXPECT_THAT(View(reloaded, "msgMaterias", "celdas"), EndsWith(R"("3"]])"));
}

TEST_F(frmAlumnoMateriaTest, SubirSwapsWithTheRowAboveAndFollowsIt) {
  const auto run = RunScript(school, kEdit + "fila msgMaterias 3\npulsar cmdSubir\nver\n");
  EXPECT_THAT(run.After("pulsar cmdSubir"), IsEmpty());
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3113,3112]");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "2");
  // The hidden column goes with its row and isn't updated.
  EXPECT_THAT(View(run, "msgMaterias", "celdas"), EndsWith(R"("2"]])"));
  EXPECT_EQ(SavedAfter("fila msgMaterias 3\npulsar cmdSubir\n"),
            Join({Update(3112, 2, 3), Update(3113, 3, 2)}));
}

TEST_F(frmAlumnoMateriaTest, BajarSwapsWithTheRowBelowAndFollowsIt) {
  const auto run = RunScript(school, kEdit + "pulsar cmdBajar\npulsar cmdBajar\nver\n");
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3112,3113,3111]");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "3");
  EXPECT_EQ(SavedAfter("pulsar cmdBajar\npulsar cmdBajar\n"),
            Join({Update(3111, 1, 3), Update(3112, 2, 1), Update(3113, 3, 2)}));
  const auto again = RunScript(school, kEdit + "ver\n");
  EXPECT_EQ(View(again, "msgMaterias", "datos"), "[0,3112,3113,3111]");
}

TEST_F(frmAlumnoMateriaTest, SubirOnTheFirstRowAndBajarOnTheLastChangeNothing) {
  const auto run =
      RunScript(school, kEdit + "pulsar cmdSubir\nfila msgMaterias 3\npulsar cmdBajar\nver\n");
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3112,3113]");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "3");
  EXPECT_THAT(SavedAfter("pulsar cmdSubir\nfila msgMaterias 3\npulsar cmdBajar\n"), IsEmpty());
}

TEST_F(frmAlumnoMateriaTest, AcceptingWithNoChangeLeadsToNoStatement) {
  EXPECT_THAT(SavedAfter(""), IsEmpty());
}

TEST_F(frmAlumnoMateriaTest, RemovingClosesTheNumberingAndKeeps255WhileItWaits) {
  const auto run = RunScript(school, kEdit +
                                         "fila msgMaterias 2\npulsar cmdEliminar\nver\n"
                                         "pulsar cmdAceptar\npulsar cmdPropiedades\nver\n");
  EXPECT_THAT(run.After("pulsar cmdEliminar"),
              ElementsAre(kEvaluationsStatement, CourseStatement(3111), CourseStatement(3113)));
  for (const auto& view : run.Of("ver"))
    EXPECT_THAT(view, testing::HasSubstr(R"("datos":[0,3111,3113])"));
  EXPECT_THAT(View(run, "msgMaterias", "celdas"), EndsWith(R"("2"]])"));
  const std::vector<std::string> removal{
      "sql centro DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT "
      "idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=3112 AND CodAlumno=1)",
      "sql centro DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT "
      "idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=3112 AND CodAlumno=1)",
      "sql centro DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=3112 AND CodAlumno=1"};
  EXPECT_EQ(SavedAfter("fila msgMaterias 2\npulsar cmdEliminar\n"),
            Join({Update(3111, 1, 1), removal, Update(3113, 3, 2)}));
  EXPECT_THAT(school.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet ORDER BY Orden"),
              ElementsAre("3111|1", "3113|2"));
}

TEST_F(frmAlumnoMateriaTest, RemovingAllLeavesNothingToRemove) {
  const auto run =
      RunScript(school, kEdit +
                            "pulsar cmdEliminar\npulsar cmdEliminar\npulsar cmdEliminar\n"
                            "pulsar cmdEliminar\nver\npulsar cmdAceptar\npulsar cmdAceptar\n");
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT CodAlumno FROM Seccion_AlumnoPte"), ElementsAre("1"));
}

TEST_F(frmAlumnoMateriaTest, CancellingForgetsEverything) {
  const auto before = school.Modulo();
  const auto run = RunScript(school, kEdit +
                                         "pulsar cmdEliminar\npulsar cmdBajar\npulsar cmdCancelar\n"
                                         "pulsar cmdPropiedades\nver\npulsar cmdCancelar\n" +
                                         kAccept);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3112,3113]");
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(frmAlumnoMateriaTest, ASubjectDetailThatIsGoneShowsItsNameAlone) {
  const auto run =
      RunScript(school, kOpen +
                            "sql \"DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3112\"\n"
                            "pulsar cmdPropiedades\nver\n");
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::HasSubstr(R"(["Matemáticas","","","","","","","","","2"])"));
}

TEST_F(frmAlumnoMateriaTest, AnEvaluationThatIsGoneShowsNoMark) {
  const auto run =
      RunScript(school, kOpen +
                            "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n"
                            "pulsar cmdPropiedades\nver\n");
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::HasSubstr(R"x(["Lengua (1º ESO)","","","","","","","","1"])x"));
}

TEST_F(frmAlumnoMateriaTest, AnEvaluationBeyondEightBitsIsAnOverflow) {
  school.Sql(
      "INSERT INTO NumEvaluacion (IDNumEvaluacion, Descripcion, Final, Extraordinaria, "
      "Orden) VALUES (256,'Otra',0,0,8)");
  EXPECT_THAT(RunScript(school, kEdit).Of("error"), ElementsAre(testing::StartsWith("6 ")));
}

TEST_F(frmAlumnoMateriaTest, TheReservedEvaluationStandsAmongTheColumns) {
  school.Evalua(2, 11);
  const auto run = RunScript(school, kEdit + "ver\n");
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::HasSubstr(R"x(["Matemáticas (1º ESO)","","","","","","","","X","2"])x"));
}

// Eliminar asks nothing: it must hit the subject that the user chose before he looked at it.
TEST_F(frmAlumnoMateriaTest, TheChosenSubjectStaysChosenBehindADialog) {
  const std::string choose =
      "elegir cboCurso =31\nelegir cboSeccion =312\nelegir cboMateria =3121\n";
  for (const std::string dialog :
       {"pulsar cmdPropiedades\npulsar cmdCancelar\n",
        "pulsar cmdPropiedades\nelegir lstDisponibles #0\npulsar cmdAgregarUno\npulsar "
        "cmdAceptar\n",
        "doble msgMaterias\ncerrar\n", "pulsar cmdAgregar\npulsar cmdCancelar\n"}) {
    const auto run = RunScript(
        school, kEdit + "fila msgMaterias 2\n" + dialog + "ver\npulsar cmdEliminar\nver\n");
    const auto views = run.Of("ver");
    ASSERT_EQ(views.size(), 2U) << run.Text();
    EXPECT_THAT(views[0], testing::HasSubstr(R"("fila":2,"columna":9,)")) << dialog;
    EXPECT_THAT(views[1], testing::HasSubstr(R"("datos":[0,3111,3113])")) << dialog;
  }
  const auto added = RunScript(
      school, kEdit + "fila msgMaterias 3\npulsar cmdAgregar\n" + choose + kAccept + "ver\n");
  EXPECT_EQ(View(added, "msgMaterias", "datos"), "[0,3111,3112,3113,3121]");
  EXPECT_EQ(View(added, "msgMaterias", "fila"), "3");
}

TEST_F(frmAlumnoMateriaTest, WithoutADialogTheFirstSubjectIsCurrentOnceTheListIsFilledAgain) {
  const auto run = RunScript(school, kEdit + "fila msgMaterias 3\npulsar cmdEliminar\nver\n");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "1");
}

TEST_F(frmAlumnoMateriaTest, ADoubleClickOnTheStudentAndOnTheSubjectOpenTheirProperties) {
  const auto run =
      RunScript(school, kOpen + "doble msgAlumnos\nfila msgMaterias 2\ndoble msgMaterias\nver\n");
  EXPECT_THAT(run.Of("carga"), ElementsAre("frmPendientes", "frmAlumnoPendiente",
                                           "frmAlumnoMateria", "frmMateriaEv"));
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Matemáticas\"");
}

TEST_F(frmAlumnoMateriaTest, WorksOnTheStudentOfTheSelectedRow) {
  school.Registra(321, 3);
  static_cast<void>(school.Pendiente(3, 3121, 1));
  const auto run = RunScript(school, kOpen +
                                         "pulsar cmdPropiedades\nver\npulsar cmdCancelar\n"
                                         "fila msgAlumnos 1\npulsar cmdPropiedades\nver\n");
  const auto views = run.Of("ver");
  ASSERT_EQ(views.size(), 2U);
  EXPECT_THAT(views[0], testing::HasSubstr(R"("datos":[0,3121])"));
  EXPECT_THAT(views[1], testing::HasSubstr(R"("datos":[0,3111,3112,3113])"));
}

TEST_F(frmAlumnoMateriaTest, AnAcceptedStudentIsSavedAfterTheOthers) {
  school.Registra(321, 3);
  static_cast<void>(school.Pendiente(3, 3121, 1));
  static_cast<void>(school.Pendiente(3, 3122, 2));
  const auto run = RunScript(school, kOpen +
                                         "fila msgAlumnos 0\npulsar cmdPropiedades\n"
                                         "pulsar cmdBajar\npulsar cmdAceptar\n"
                                         "fila msgAlumnos 1\npulsar cmdPropiedades\n"
                                         "pulsar cmdBajar\npulsar cmdAceptar\n" +
                                         kAccept);
  std::vector<std::string> updates;
  for (const auto& statement : run.Sql())
    if (statement.starts_with("UPDATE")) updates.push_back(statement);
  EXPECT_THAT(updates,
              ElementsAre("UPDATE AlumnoPte_MatDet SET Orden=2 WHERE IDAlumnoPte_MatDet=4",
                          "UPDATE AlumnoPte_MatDet SET Orden=1 WHERE IDAlumnoPte_MatDet=5",
                          "UPDATE AlumnoPte_MatDet SET Orden=2 WHERE IDAlumnoPte_MatDet=1",
                          "UPDATE AlumnoPte_MatDet SET Orden=1 WHERE IDAlumnoPte_MatDet=2"));
}

}  // namespace
}  // namespace quorvane::test
