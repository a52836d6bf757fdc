#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kPick = kOpen + "pulsar cmdListar\n";
const std::string kSave = "pulsar cmdAceptar\n";

std::string PickerStatement(const std::string& ids) {
  return "SELECT alumno.IDAlumno, Alumno.Apellido_1, Alumno.Apellido_2, Alumno.nombre FROM Alumno "
         "INNER JOIN Seccion_Alumno ON Alumno.IDAlumno=Seccion_Alumno.codAlumno WHERE idalumno not "
         "in (" +
         ids + ") AND (FechaBaja='' OR FechaBaja IS NULL) AND alumno.codSeccion=321";
}

TEST(frmAlumnosTest, WithAnEmptyRegisterAllEnrolledStudentsOfTheSectionAreOffered) {
  const SmallSchool school;
  const auto run = RunScript(school, kPick + "ver\n");
  EXPECT_THAT(
      run.After("pulsar cmdListar"),
      ElementsAre("carga frmAlumnos", "sql centro " + PickerStatement("0"), "muestra frmAlumnos"));
  EXPECT_EQ(View(run, "", "titulo"), "\"Selección de Alumnos con Materias Pendientes\"");
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), "[]");
  const auto offered = View(run, "lstDisponibles", "entradas");
  EXPECT_THAT(offered, HasSubstr(R"(["Díaz Cano, Marta",1])"));
  EXPECT_THAT(offered, HasSubstr(R"(["Ñúñez Sanz, Íñigo",2])"));
  EXPECT_THAT(offered, HasSubstr(R"(["Abad Rey, Jorge",3])"));
  EXPECT_THAT(offered, Not(HasSubstr(",4]")));  // has left
  EXPECT_THAT(offered, Not(HasSubstr(",5]")));  // of another section
  EXPECT_EQ(View(run, "lblDisponibles", "texto"), "\"Seleccionadas:\"");
  EXPECT_EQ(View(run, "lblSeleccionadas", "texto"), "\"Disponibles:\"");
  EXPECT_EQ(View(run, "cmdAgregarUno", "texto"), "\"<- Agregar\"");
  EXPECT_EQ(View(run, "cmdAgregarTodos", "texto"), "\"<<- Todos\"");
  EXPECT_EQ(View(run, "cmdEliminarUno", "texto"), "\"Quitar ->\"");
  EXPECT_EQ(View(run, "cmdEliminarTodos", "texto"), "\"Todos ->>\"");
  EXPECT_EQ(View(run, "cmdAceptar", "texto"), "\"Aceptar\"");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Cancelar\"");
}

TEST(frmAlumnosTest, WhoIsOnTheRegisterIsSelectedAndNotLookedFor) {
  const SmallSchool school;
  school.Registra(321, 5);
  school.Registra(321, 1);
  const auto run = RunScript(school, kPick + "ver\n");
  EXPECT_THAT(run.Sql(), testing::Contains(PickerStatement("1,5")));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"),
            R"([["Díaz Cano, Marta",1],["Blanco Mas, Hugo",5]])");
}

TEST(frmAlumnosTest, TheStudentChosenOnTheRegisterStaysChosen) {
  const SmallSchool school;
  for (const auto student : {1, 2, 5}) school.Registra(321, student);
  const auto current = [&school](const std::string& gestures) {
    const auto run =
        RunScript(school, kOpen + "fila msgAlumnos 1\npulsar cmdListar\n" + gestures + "ver\n");
    return View(run, "msgAlumnos", "fila") + " " + View(run, "msgAlumnos", "datos");
  };
  EXPECT_EQ(current("pulsar cmdCancelar\n"), "1 [5,1,2]");
  EXPECT_EQ(current("elegir lstDisponibles =3\npulsar cmdAgregarUno\n" + kSave), "2 [3,5,1,2]");
  EXPECT_EQ(current("elegir lstSeleccionados =5\npulsar cmdEliminarUno\n" + kSave), "0 [1,2]");
  EXPECT_EQ(current("elegir lstSeleccionados =1\npulsar cmdEliminarUno\n" + kSave), "0 [5,2]")
      << "has left the register";
}

TEST(frmAlumnosTest, AgregarUnoWithNothingSelectedDoesNothing) {
  const SmallSchool school;
  school.Registra(321, 1);
  const auto run = RunScript(school, kPick + "pulsar cmdAgregarUno\npulsar cmdEliminarUno\nver\n");
  EXPECT_THAT(run.After("pulsar cmdAgregarUno"), IsEmpty());
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), R"([["Díaz Cano, Marta",1]])");
}

TEST(frmAlumnosTest, EntriesMoveToTheEndOfTheOtherListAndNothingStaysSelected) {
  const SmallSchool school;
  const auto one = RunScript(school, kPick +
                                         "elegir lstDisponibles =3\npulsar cmdAgregarUno\n"
                                         "elegir lstDisponibles =1\ndoble lstDisponibles\nver\n");
  EXPECT_EQ(View(one, "lstSeleccionados", "entradas"),
            R"([["Abad Rey, Jorge",3],["Díaz Cano, Marta",1]])");
  EXPECT_EQ(View(one, "lstDisponibles", "entradas"), R"([["Ñúñez Sanz, Íñigo",2]])");
  EXPECT_EQ(View(one, "lstDisponibles", "indice"), "-1");
  const auto back = RunScript(school, kPick +
                                          "elegir lstDisponibles =3\npulsar cmdAgregarUno\n"
                                          "elegir lstDisponibles =1\npulsar cmdAgregarUno\n"
                                          "pulsar cmdAgregarTodos\nelegir lstSeleccionados =1\n"
                                          "pulsar cmdEliminarUno\nelegir lstSeleccionados =3\n"
                                          "doble lstSeleccionados\nver\n");
  EXPECT_EQ(View(back, "lstSeleccionados", "entradas"), R"([["Ñúñez Sanz, Íñigo",2]])");
  EXPECT_EQ(View(back, "lstDisponibles", "entradas"),
            R"([["Díaz Cano, Marta",1],["Abad Rey, Jorge",3]])");
  const auto all = RunScript(school, kPick +
                                         "elegir lstDisponibles =3\npulsar cmdAgregarUno\n"
                                         "elegir lstDisponibles =2\npulsar cmdAgregarUno\n"
                                         "pulsar cmdEliminarTodos\nver\n");
  EXPECT_EQ(View(all, "lstSeleccionados", "entradas"), "[]");
  EXPECT_EQ(View(all, "lstDisponibles", "entradas"),
            R"([["Díaz Cano, Marta",1],["Abad Rey, Jorge",3],["Ñúñez Sanz, Íñigo",2]])");
}

TEST(frmAlumnosTest, AcceptingRefreshesTheListAndSavingWritesThePlaces) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(
      school, kPick +
                  "elegir lstDisponibles =2\npulsar cmdAgregarUno\nelegir lstDisponibles =1\n"
                  "pulsar cmdAgregarUno\npulsar cmdAceptar\nver\n" +
                  kSave);
  EXPECT_EQ(View(run, "msgAlumnos", "celdas"), R"([["Díaz Cano, Marta"],["Ñúñez Sanz, Íñigo"]])");
  // In the order of the choice, whatever the list shows.
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro DELETE FROM Seccion_AlumnoPte WHERE codSeccion = 321 AND "
                          "codAlumno = 2",
                          "sql centro INSERT INTO Seccion_AlumnoPte VALUES (321,2,0,0)",
                          "sql centro DELETE FROM Seccion_AlumnoPte WHERE codSeccion = 321 AND "
                          "codAlumno = 1",
                          "sql centro INSERT INTO Seccion_AlumnoPte VALUES (321,1,0,0)",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST(frmAlumnosTest, CancellingChangesNothing) {
  const SmallSchool school;
  school.Registra(321, 1);
  const auto run =
      RunScript(school, kPick +
                            "pulsar cmdEliminarTodos\npulsar cmdCancelar\nver\npulsar cmdListar\n"
                            "pulsar cmdCancelar\n" +
                            kSave);
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[1]");
  EXPECT_THAT(school.Rows("SELECT CodAlumno FROM Seccion_AlumnoPte"), ElementsAre("1"));
}

TEST(frmAlumnosTest, AnEmptySelectionTakesAllStudentsOffTheRegister) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  school.Registra(331, 1);
  school.Registra(321, 3);
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  school.Evalua(school.Pendiente(3, 3112, 1), 4, 105);
  const auto run =
      RunScript(school, kPick + "pulsar cmdEliminarTodos\npulsar cmdAceptar\nver\n" + kSave);
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[]");
  const auto deletes = [](const std::string& a) -> std::vector<std::string> {
    return {
        "sql centro DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT "
        "idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno=" +
            a + ")",
        "sql centro DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT "
        "idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno=" +
            a + ")",
        "sql centro DELETE FROM AlumnoPte_MatDet WHERE CodAlumno=" + a,
        "sql centro DELETE FROM Seccion_AlumnoPte WHERE CodAlumno=" + a};
  };
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              testing::ElementsAreArray(Join(
                  {deletes("1"), deletes("3"), {"descarga frmAlumnoPendiente", "vuelve 123"}})));
  // From the other section too.
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), IsEmpty());
}

TEST(frmAlumnosTest, AStudentRemovedIsOfferedAgainAtTheNextOpening) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Registra(321, 3);
  const auto run = RunScript(school, kPick +
                                         "elegir lstSeleccionados =1\npulsar cmdEliminarUno\n"
                                         "pulsar cmdAceptar\nver\npulsar cmdListar\nver\n");
  const auto views = run.Of("ver");
  EXPECT_THAT(views.front(), HasSubstr(R"("celdas":[["Abad Rey, Jorge"]])"));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), R"([["Abad Rey, Jorge",3]])");
  // First, before those that the statement finds; it leaves him out.
  EXPECT_EQ(View(run, "lstDisponibles", "entradas"),
            R"([["Díaz Cano, Marta",1],["Ñúñez Sanz, Íñigo",2]])");
  EXPECT_EQ(run.After("pulsar cmdListar")[1], "sql centro " + PickerStatement("1,3"));
}

TEST(frmAlumnosTest, RemovedAndPutBackInTwoOpeningsHeComesWithoutSubjectsAndKeepsHisRows) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  const auto before = school.Modulo();
  const auto run =
      RunScript(school, kPick +
                            "elegir lstSeleccionados =1\npulsar cmdEliminarUno\npulsar cmdAceptar\n"
                            "pulsar cmdListar\nelegir lstDisponibles =1\npulsar cmdAgregarUno\n"
                            "pulsar cmdAceptar\npulsar cmdPropiedades\nver\npulsar cmdCancelar\n" +
                            kSave);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST(frmAlumnosTest, AStudentWhoHasLeftStaysUntilHeIsRemovedAndSaved) {
  const SmallSchool school;
  school.Registra(321, 4);
  const auto run = RunScript(school, kPick + "ver\npulsar cmdEliminarTodos\npulsar cmdAceptar\n" +
                                         kSave + kPick + "ver\n");
  EXPECT_THAT(run.Of("ver").front(), HasSubstr(R"("entradas":[["Pérez Gil, Nora",4]])"));
  EXPECT_THAT(View(run, "lstDisponibles", "entradas"), Not(HasSubstr("Nora")));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), "[]");
}

TEST(frmAlumnosTest, AStudentAddedAndRemovedBeforeSavingIsForgotten) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kPick +
                                         "pulsar cmdAgregarTodos\npulsar cmdAceptar\n"
                                         "pulsar cmdListar\nver\npulsar cmdEliminarTodos\n"
                                         "pulsar cmdAceptar\npulsar cmdListar\n"
                                         "pulsar cmdCancelar\n" +
                                         kSave);
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  // Nobody is left to leave out.
  EXPECT_EQ(run.After("pulsar cmdListar")[1], "sql centro " + PickerStatement("0"));
}

TEST(frmAlumnosTest, ANewStudentKeptInASecondOpeningIsStillInserted) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kPick +
                                         "elegir lstDisponibles =1\npulsar cmdAgregarUno\n"
                                         "pulsar cmdAceptar\npulsar cmdListar\n"
                                         "pulsar cmdAceptar\n" +
                                         kSave);
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte"), ElementsAre("321|1|0|0"))
      << run.Text();
}

TEST(frmAlumnosTest, AcceptingUntouchedLeadsToNoStatementForTheStudents) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  const auto run = RunScript(school, kPick + "pulsar cmdAceptar\n" + kSave);
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST(frmAlumnosTest, AStudentWhoStandsTwiceInTheHostsListIsOfferedTwice) {
  const SmallSchool school;
  school.Sql("INSERT INTO Seccion_Alumno (codAlumno) VALUES (1)");
  const auto both = RunScript(school, kPick + "pulsar cmdAgregarTodos\npulsar cmdAceptar\nver\n");
  EXPECT_EQ(View(both, "msgAlumnos", "datos"), "[3,1,2]");
  // The one that was left takes off the one that was chosen.
  const auto one = RunScript(school, kPick +
                                         "elegir lstDisponibles =1\npulsar cmdAgregarUno\n"
                                         "pulsar cmdAceptar\nver\n");
  EXPECT_EQ(View(one, "msgAlumnos", "datos"), "[]");
}

TEST(frmAlumnosTest, ANullDateOfLeavingAndNullNamesAreFine) {
  const SmallSchool school;
  school.Sql("UPDATE Alumno SET Apellido_2=NULL, FechaBaja=NULL WHERE IDAlumno=1");
  const auto run = RunScript(school, kPick + "ver\n");
  EXPECT_THAT(View(run, "lstDisponibles", "entradas"), HasSubstr(R"(["Díaz , Marta",1])"));
}

}  // namespace
}  // namespace quorvane::test
