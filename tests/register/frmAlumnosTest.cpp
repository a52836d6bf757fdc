#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

const std::string kPickStudents = kOpen + kList;

using frmAlumnosTest = RegisterTest;
using frmAlumnosSavingTest = RegisterWithRowsTest;

TEST_F(frmAlumnosTest, WithAnEmptyRegisterAllEnrolledStudentsOfTheSectionAreOffered) {
  const auto run = Run(kPickStudents + kSee);
  EXPECT_THAT(run.After("pulsar cmdListar"),
              ElementsAre("carga frmAlumnos", Sent(Picker("0")), "muestra frmAlumnos"));
  ExpectTexts(run, "Selección de Alumnos con Materias Pendientes", kDualListTexts);
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), "[]");
  const auto offered = View(run, "lstDisponibles", "entradas");
  EXPECT_THAT(offered, HasSubstr(R"(["Díaz Cano, Marta",1])"));
  EXPECT_THAT(offered, HasSubstr(R"(["Ñúñez Sanz, Íñigo",2])"));
  EXPECT_THAT(offered, HasSubstr(R"(["Abad Rey, Jorge",3])"));
  EXPECT_THAT(offered, Not(HasSubstr(",4]")));  // has left
  EXPECT_THAT(offered, Not(HasSubstr(",5]")));  // of another section
}

TEST_F(frmAlumnosTest, WhoIsOnTheRegisterIsSelectedAndNotLookedFor) {
  Registra({5, 1});
  const auto run = Run(kPickStudents + kSee);
  EXPECT_THAT(run.Sql(), Contains(Picker("1,5")));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"),
            R"([["Díaz Cano, Marta",1],["Blanco Mas, Hugo",5]])");
}

TEST_F(frmAlumnosTest, TheStudentChosenOnTheRegisterStaysChosen) {
  Registra({1, 2, 5});
  const auto current = [this](const std::string& gestures) {
    const auto run = Run(kOpen + "fila msgAlumnos 1\n" + kList + gestures + kSee);
    return View(run, "msgAlumnos", "fila") + " " + View(run, "msgAlumnos", "datos");
  };
  EXPECT_EQ(current(kCancel), "1 [5,1,2]");
  EXPECT_EQ(current(TakeIn(3) + kAccept), "2 [3,5,1,2]");
  EXPECT_EQ(current(TakeOut(5) + kAccept), "0 [1,2]");
  EXPECT_EQ(current(TakeOut(1) + kAccept), "0 [5,2]") << "has left the register";
}

TEST_F(frmAlumnosTest, AgregarUnoWithNothingSelectedDoesNothing) {
  Registra({1});
  const auto run = Run(kPickStudents + "pulsar cmdAgregarUno\npulsar cmdEliminarUno\n" + kSee);
  EXPECT_THAT(run.After("pulsar cmdAgregarUno"), IsEmpty());
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), R"([["Díaz Cano, Marta",1]])");
}

TEST_F(frmAlumnosTest, EntriesMoveToTheEndOfTheOtherListAndNothingStaysSelected) {
  const auto one =
      Run(kPickStudents + TakeIn(3) + "elegir lstDisponibles =1\ndoble lstDisponibles\n" + kSee);
  EXPECT_EQ(View(one, "lstSeleccionados", "entradas"),
            R"([["Abad Rey, Jorge",3],["Díaz Cano, Marta",1]])");
  EXPECT_EQ(View(one, "lstDisponibles", "entradas"), R"([["Ñúñez Sanz, Íñigo",2]])");
  EXPECT_EQ(View(one, "lstDisponibles", "indice"), "-1");
  const auto back = Run(kPickStudents + TakeIn(3) + TakeIn(1) + "pulsar cmdAgregarTodos\n" +
                        TakeOut(1) + "elegir lstSeleccionados =3\ndoble lstSeleccionados\n" + kSee);
  EXPECT_EQ(View(back, "lstSeleccionados", "entradas"), R"([["Ñúñez Sanz, Íñigo",2]])");
  EXPECT_EQ(View(back, "lstDisponibles", "entradas"),
            R"([["Díaz Cano, Marta",1],["Abad Rey, Jorge",3]])");
  const auto all = Run(kPickStudents + TakeIn(3) + TakeIn(2) + "pulsar cmdEliminarTodos\n" + kSee);
  EXPECT_EQ(View(all, "lstSeleccionados", "entradas"), "[]");
  EXPECT_EQ(View(all, "lstDisponibles", "entradas"),
            R"([["Díaz Cano, Marta",1],["Abad Rey, Jorge",3],["Ñúñez Sanz, Íñigo",2]])");
}

TEST_F(frmAlumnosSavingTest, AcceptingRefreshesTheListAndSavingWritesThePlaces) {
  const auto run = Run(kPickStudents + TakeIn(2) + TakeIn(1) + kAccept + kSee + kAccept);
  EXPECT_EQ(View(run, "msgAlumnos", "celdas"), R"([["Díaz Cano, Marta"],["Ñúñez Sanz, Íñigo"]])");
  // In the order of the choice, whatever the list shows.
  EXPECT_EQ(Saved(run), Join({InsertStudent(2), InsertStudent(1)}));
}

TEST_F(frmAlumnosTest, CancellingChangesNothing) {
  Registra({1});
  const auto run =
      Run(kPickStudents + "pulsar cmdEliminarTodos\n" + kCancel + kSee + kList + kCancel + kAccept);
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[1]");
  EXPECT_THAT(school.Rows("SELECT CodAlumno FROM Seccion_AlumnoPte"), ElementsAre("1"));
}

TEST_F(frmAlumnosSavingTest, AnEmptySelectionTakesAllStudentsOffTheRegister) {
  Registra({1});
  for (const auto alumno : {1, 5}) school.Registra(331, alumno);
  Registra({3});
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  school.Evalua(school.Pendiente(3, 3112, 1), 4, 105);
  const auto run = Run(kPickStudents + "pulsar cmdEliminarTodos\n" + kAccept + kSee + kAccept);
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[]");
  EXPECT_EQ(Saved(run), Join({DeleteStudent(1), DeleteStudent(3)}));
  // From the other section too, which keeps who stays there.
  EXPECT_THAT(school.Rows("SELECT CodSeccion, CodAlumno FROM Seccion_AlumnoPte"),
              ElementsAre("331|5"));
  ExpectEmpty({"AlumnoPte_MatDet", "EvaluacionPte", "EvaluacionActaPte"});
}

TEST_F(frmAlumnosTest, AStudentRemovedIsOfferedAgainAtTheNextOpening) {
  Registra({1, 3});
  const auto run = Run(kPickStudents + TakeOut(1) + kAccept + kSee + kList + kSee);
  const auto views = run.Of("ver");
  EXPECT_THAT(views.front(), HasSubstr(R"("celdas":[["Abad Rey, Jorge"]])"));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), R"([["Abad Rey, Jorge",3]])");
  // First, before those that the statement finds; it leaves him out.
  EXPECT_EQ(View(run, "lstDisponibles", "entradas"),
            R"([["Díaz Cano, Marta",1],["Ñúñez Sanz, Íñigo",2]])");
  EXPECT_EQ(run.After("pulsar cmdListar")[1], Sent(Picker("1,3")));
}

TEST_F(frmAlumnosSavingTest, RemovedAndPutBackInTwoOpeningsHeComesWithoutSubjectsAndKeepsHisRows) {
  Registra({1});
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  const auto before = school.Modulo();
  const auto run = Run(kPickStudents + TakeOut(1) + kAccept + kList + TakeIn(1) + kAccept +
                       kProperties + kSee + kCancel + kAccept);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(Saved(run), IsEmpty());
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(frmAlumnosTest, AStudentWhoHasLeftStaysUntilHeIsRemovedAndSaved) {
  Registra({4});
  const auto run = Run(kPickStudents + kSee + "pulsar cmdEliminarTodos\n" + kAccept + kAccept +
                       kPickStudents + kSee);
  EXPECT_THAT(run.Of("ver").front(), HasSubstr(R"("entradas":[["Pérez Gil, Nora",4]])"));
  EXPECT_THAT(View(run, "lstDisponibles", "entradas"), Not(HasSubstr("Nora")));
  EXPECT_EQ(View(run, "lstSeleccionados", "entradas"), "[]");
}

TEST_F(frmAlumnosSavingTest, AStudentAddedAndRemovedBeforeSavingIsForgotten) {
  const auto run = Run(kPickStudents + "pulsar cmdAgregarTodos\n" + kAccept + kList + kSee +
                       "pulsar cmdEliminarTodos\n" + kAccept + kList + kCancel + kAccept);
  EXPECT_THAT(Saved(run), IsEmpty());
  // Nobody is left to leave out.
  EXPECT_EQ(run.After("pulsar cmdListar")[1], Sent(Picker("0")));
}

TEST_F(frmAlumnosSavingTest, ANewStudentKeptInASecondOpeningIsStillInserted) {
  Run(kPickStudents + TakeIn(1) + kAccept + kList + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte"), ElementsAre("321|1|0|0"));
}

TEST_F(frmAlumnosSavingTest, AcceptingUntouchedLeadsToNoStatementForTheStudents) {
  Registra({1});
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  EXPECT_THAT(Saved(Run(kPickStudents + kAccept + kAccept)), IsEmpty());
}

TEST_F(frmAlumnosTest, AStudentWhoStandsTwiceInTheHostsListIsOfferedTwice) {
  school.Sql("INSERT INTO Seccion_Alumno (codAlumno) VALUES (1)");
  const auto both = Run(kPickStudents + "pulsar cmdAgregarTodos\n" + kAccept + kSee);
  EXPECT_EQ(View(both, "msgAlumnos", "datos"), "[3,1,2]");
  // The one that was left takes off the one that was chosen.
  const auto one = Run(kPickStudents + TakeIn(1) + kAccept + kSee);
  EXPECT_EQ(View(one, "msgAlumnos", "datos"), "[]");
}

TEST_F(frmAlumnosTest, ANullDateOfLeavingAndNullNamesAreFine) {
  school.Sql("UPDATE Alumno SET Apellido_2=NULL, FechaBaja=NULL WHERE IDAlumno=1");
  const auto run = Run(kPickStudents + kSee);
  EXPECT_THAT(View(run, "lstDisponibles", "entradas"), HasSubstr(R"(["Díaz , Marta",1])"));
}

}  // namespace
}  // namespace quorvane::test
