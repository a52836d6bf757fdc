#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

const std::string kEdit = kOpen + kProperties;

/// Student 1 with "Lengua", "Matemáticas" and "Francés", in this order, the first in evaluation 1.
class frmAlumnoMateriaTest : public RegisterWithRowsTest {
 protected:
  frmAlumnoMateriaTest() {
    Pendientes(1, {3111, 3112, 3113});
    school.Evalua(1, 1, 105);
  }

  /// What saving executes after these gestures on the student's subjects.
  [[nodiscard]] Lines SavedAfter(const std::string& gestures) const {
    return Saved(Run(kEdit + gestures + kAccept + kAccept));
  }
};

TEST_F(frmAlumnoMateriaTest, ShowsTheSubjectsInAMatrixAgainstAllEvaluations) {
  const auto run = Run(kEdit + kSee);
  EXPECT_THAT(run.After("pulsar cmdPropiedades"),
              ElementsAre("carga frmAlumnoMateria", Sent(kColumns), Sent(CourseOf(3111)),
                          Sent(CourseOf(3112)), Sent(CourseOf(3113)), "muestra frmAlumnoMateria"));
  ExpectTexts(run, "Materias Pendientes del Alumno",
              {"Label1=Alumno:", "Label2=Díaz Cano, Marta", "Label3=Materias:", "cmdSubir=",
               "cmdBajar=", "cmdAgregar=Agregar", "cmdEliminar=Eliminar",
               "cmdPropiedades=Propiedades", "cmdAceptar=Aceptar", "cmdCancelar=Cancelar"});
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
  const auto run = Run(kEdit + kSee + "pulsar cmdSubir\npulsar cmdBajar\n" + kRemove + kProperties +
                       "doble msgMaterias\n");
  EXPECT_EQ(View(run, "msgMaterias", "anchos"), "[1200,2040,3000,960,1920,1920,1920,1920,1440,0]");
  for (const auto* const command :
       {"pulsar cmdSubir", "pulsar cmdBajar", "pulsar cmdEliminar", "pulsar cmdPropiedades"})
    EXPECT_THAT(run.After(command), IsEmpty()) << command;
}

TEST_F(frmAlumnoMateriaTest, WithoutEvaluationsThereIsTheSubjectAlone) {
  school.Sql("DELETE FROM NumEvaluacion");
  const auto run = Run(kEdit + kSee);
  EXPECT_EQ(Materias(run),
            R"x([["Materia",""],["Lengua (1º ESO)","1"],["Matemáticas (1º ESO)","2"],)x"
            R"x(["Francés (1º ESO)","3"]])x");
  EXPECT_EQ(View(run, "msgMaterias", "anchos"), "[2760,0]");
}

TEST_F(frmAlumnoMateriaTest, SubjectsStandByTheirOrderAndGapsClose) {
  school.Sql(
      "UPDATE AlumnoPte_MatDet SET Orden=200 WHERE CodMatDet=3111;"
      "UPDATE AlumnoPte_MatDet SET Orden=30 WHERE CodMatDet=3113");
  const auto first = Run(kEdit + kSee);
  EXPECT_EQ(View(first, "msgMaterias", "datos"), "[0,3112,3113,3111]");
  // What stood before the renumbering shows until the next reload.
  EXPECT_THAT(Materias(first), EndsWith(R"("200"]])"));
  const auto reloaded = Run(kEdit + kProperties + kCancel + kSee);
  EXPECT_EQ(View(reloaded, "msgMaterias", "datos"), "[0,3112,3113,3111]");
  EXPECT_THAT(Materias(reloaded), EndsWith(R"("3"]])"));
}

TEST_F(frmAlumnoMateriaTest, SubirSwapsWithTheRowAboveAndFollowsIt) {
  const auto run = Run(kEdit + "fila msgMaterias 3\npulsar cmdSubir\n" + kSee);
  EXPECT_THAT(run.After("pulsar cmdSubir"), IsEmpty());
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3113,3112]");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "2");
  // The hidden column goes with its row and isn't updated.
  EXPECT_THAT(Materias(run), EndsWith(R"("2"]])"));
  EXPECT_EQ(SavedAfter("fila msgMaterias 3\npulsar cmdSubir\n"),
            Join({UpdateSubject(3112, 2, 3), UpdateSubject(3113, 3, 2)}));
}

TEST_F(frmAlumnoMateriaTest, BajarSwapsWithTheRowBelowAndFollowsIt) {
  const auto run = Run(kEdit + "pulsar cmdBajar\npulsar cmdBajar\n" + kSee);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3112,3113,3111]");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "3");
  EXPECT_EQ(
      SavedAfter("pulsar cmdBajar\npulsar cmdBajar\n"),
      Join({UpdateSubject(3111, 1, 3), UpdateSubject(3112, 2, 1), UpdateSubject(3113, 3, 2)}));
  const auto again = Run(kEdit + kSee);
  EXPECT_EQ(View(again, "msgMaterias", "datos"), "[0,3112,3113,3111]");
}

TEST_F(frmAlumnoMateriaTest, SubirOnTheFirstRowBajarOnTheLastAndNothingAtAllChangeNothing) {
  const auto run = Run(kEdit + "pulsar cmdSubir\nfila msgMaterias 3\npulsar cmdBajar\n" + kSee);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3112,3113]");
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "3");
  EXPECT_THAT(SavedAfter("pulsar cmdSubir\nfila msgMaterias 3\npulsar cmdBajar\n"), IsEmpty());
  EXPECT_THAT(SavedAfter(""), IsEmpty());
}

TEST_F(frmAlumnoMateriaTest, RemovingClosesTheNumberingAndKeeps255WhileItWaits) {
  const auto run =
      Run(kEdit + "fila msgMaterias 2\n" + kRemove + kSee + kAccept + kProperties + kSee);
  EXPECT_THAT(run.After("pulsar cmdEliminar"),
              ElementsAre(Sent(kColumns), Sent(CourseOf(3111)), Sent(CourseOf(3113))));
  for (const auto& view : run.Of("ver")) EXPECT_THAT(view, HasSubstr(R"("datos":[0,3111,3113])"));
  EXPECT_THAT(Materias(run), EndsWith(R"("2"]])"));
  EXPECT_EQ(SavedAfter("fila msgMaterias 2\n" + kRemove),
            Join({UpdateSubject(3111, 1, 1), DeleteSubject(3112), UpdateSubject(3113, 3, 2)}));
  EXPECT_THAT(school.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet ORDER BY Orden"),
              ElementsAre("3111|1", "3113|2"));
}

TEST_F(frmAlumnoMateriaTest, RemovingAllLeavesNothingToRemove) {
  const auto run = Run(kEdit + kRemove + kRemove + kRemove + kRemove + kSee + kAccept + kAccept);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  ExpectEmpty({"AlumnoPte_MatDet", "EvaluacionPte"});
  EXPECT_THAT(school.Rows("SELECT CodAlumno FROM Seccion_AlumnoPte"), ElementsAre("1"));
}

TEST_F(frmAlumnoMateriaTest, CancellingForgetsEverything) {
  const auto before = school.Modulo();
  const auto run =
      Run(kEdit + kRemove + "pulsar cmdBajar\n" + kCancel + kProperties + kSee + kCancel + kAccept);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3112,3113]");
  EXPECT_THAT(Saved(run), IsEmpty());
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(frmAlumnoMateriaTest, ASubjectDetailThatIsGoneShowsItsNameAlone) {
  const auto run =
      Run(kOpen + "sql \"DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3112\"\n" +
          kProperties + kSee);
  EXPECT_THAT(Materias(run), HasSubstr(R"(["Matemáticas","","","","","","","","","2"])"));
}

TEST_F(frmAlumnoMateriaTest, AnEvaluationThatIsGoneShowsNoMark) {
  const auto run = Run(kOpen + "sql \"DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=1\"\n" +
                       kProperties + kSee);
  EXPECT_THAT(Materias(run), HasSubstr(R"x(["Lengua (1º ESO)","","","","","","","","1"])x"));
}

TEST_F(frmAlumnoMateriaTest, AnEvaluationBeyondEightBitsIsAnOverflow) {
  school.Sql(
      "INSERT INTO NumEvaluacion (IDNumEvaluacion, Descripcion, Final, Extraordinaria, "
      "Orden) VALUES (256,'Otra',0,0,8)");
  ExpectError(Run(kEdit), 6);
}

TEST_F(frmAlumnoMateriaTest, TheReservedEvaluationStandsAmongTheColumns) {
  school.Evalua(2, 11);
  const auto run = Run(kEdit + kSee);
  EXPECT_THAT(Materias(run),
              HasSubstr(R"x(["Matemáticas (1º ESO)","","","","","","","","X","2"])x"));
}

// Eliminar asks nothing: it must hit the subject that the user chose before he looked at it.
TEST_F(frmAlumnoMateriaTest, TheChosenSubjectStaysChosenBehindADialog) {
  for (const auto& dialog :
       {kProperties + kCancel,
        kProperties + "elegir lstDisponibles #0\npulsar cmdAgregarUno\n" + kAccept,
        std::string("doble msgMaterias\ncerrar\n"), "pulsar cmdAgregar\n" + kCancel}) {
    const auto run = Run(kEdit + "fila msgMaterias 2\n" + dialog + kSee + kRemove + kSee);
    const auto views = run.Of("ver");
    ASSERT_EQ(views.size(), 2U) << run.Text();
    EXPECT_THAT(views[0], HasSubstr(R"("fila":2,"columna":9,)")) << dialog;
    EXPECT_THAT(views[1], HasSubstr(R"("datos":[0,3111,3113])")) << dialog;
  }
  const auto added = Run(kEdit + "fila msgMaterias 3\n" + AddSubject(3121) + kSee);
  EXPECT_EQ(View(added, "msgMaterias", "datos"), "[0,3111,3112,3113,3121]");
  EXPECT_EQ(View(added, "msgMaterias", "fila"), "3");
}

TEST_F(frmAlumnoMateriaTest, WithoutADialogTheFirstSubjectIsCurrentOnceTheListIsFilledAgain) {
  const auto run = Run(kEdit + "fila msgMaterias 3\n" + kRemove + kSee);
  EXPECT_EQ(View(run, "msgMaterias", "fila"), "1");
}

TEST_F(frmAlumnoMateriaTest, ADoubleClickOnTheStudentAndOnTheSubjectOpenTheirProperties) {
  const auto run = Run(kOpen + "doble msgAlumnos\nfila msgMaterias 2\ndoble msgMaterias\n" + kSee);
  EXPECT_THAT(run.Of("carga"), ElementsAre("frmPendientes", "frmAlumnoPendiente",
                                           "frmAlumnoMateria", "frmMateriaEv"));
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Matemáticas\"");
}

TEST_F(frmAlumnoMateriaTest, WorksOnTheStudentOfTheSelectedRow) {
  Pendientes(3, {3121});
  const auto run =
      Run(kOpen + kProperties + kSee + kCancel + "fila msgAlumnos 1\n" + kProperties + kSee);
  const auto views = run.Of("ver");
  ASSERT_EQ(views.size(), 2U);
  EXPECT_THAT(views[0], HasSubstr(R"("datos":[0,3121])"));
  EXPECT_THAT(views[1], HasSubstr(R"("datos":[0,3111,3112,3113])"));
}

TEST_F(frmAlumnoMateriaTest, AnAcceptedStudentIsSavedAfterTheOthers) {
  Pendientes(3, {3121, 3122});
  const auto run =
      Run(kOpen + "fila msgAlumnos 0\n" + kProperties + "pulsar cmdBajar\n" + kAccept +
          "fila msgAlumnos 1\n" + kProperties + "pulsar cmdBajar\n" + kAccept + kAccept);
  EXPECT_THAT(Beginning(run, {"UPDATE"}), ElementsAre(OrderSubject(4, 2), OrderSubject(5, 1),
                                                      OrderSubject(1, 2), OrderSubject(2, 1)));
}

}  // namespace
}  // namespace quorvane::test
