#include "tests/register/RegisterTest.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

/// A register of one student with one subject in one evaluation, after that statement.
ScriptResult OpenAfter(const std::string& damage, const std::string& more = "") {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 7), 1);
  school.Sql(damage);
  return RunScript(school, kOpen + more);
}

TEST(RegisterBadInputTest, NullsAreEmptyNamesAndNoNumber) {
  const auto run = OpenAfter(
      "UPDATE Alumno SET Nombre=NULL, Apellido_1=NULL, Apellido_2=NULL, codSeccion=NULL WHERE "
      "IDAlumno=1; UPDATE AlumnoPte_MatDet SET Orden=NULL;"
      "UPDATE Materia SET Nombre=NULL; UPDATE Curso SET Descripcion=NULL;"
      "UPDATE Seccion SET Descripcion=NULL; UPDATE NumEvaluacion SET Descripcion=NULL, Final=NULL;"
      "UPDATE Personal SET Nombre=NULL, Apellido2=NULL; INSERT INTO Profesor_Pte VALUES (1,3111)",
      kSee + kProperties + kSee);
  EXPECT_EQ(run.status, 0) << run.Text();
  const auto views = run.Of("ver");
  ASSERT_EQ(views.size(), 2U);
  EXPECT_THAT(views[0], HasSubstr(R"("celdas":[[" , "]],"datos":[1])"));
  EXPECT_THAT(views[0], HasSubstr(R"x([" ( - )","Ruiz , "])x"));
  EXPECT_EQ(Materias(run),
            R"x([["Materia","","","","","","","","",""],[" ()","","","X","","","","","","0"]])x");
}

TEST(RegisterBadInputTest, NumbersTooLargeForTheirFieldsAreAnOverflow) {
  for (const auto* const damage :
       {"UPDATE AlumnoPte_MatDet SET Orden=256", "UPDATE AlumnoPte_MatDet SET Orden=-1",
        "UPDATE NumEvaluacion SET IDNumEvaluacion=256 WHERE IDNumEvaluacion=1;"
        "UPDATE EvaluacionPte SET CodNumEvaluacion=256",
        "UPDATE Seccion SET codCurso=256 WHERE IDSeccion=331;"
        "UPDATE Alumno SET codSeccion=331 WHERE IDAlumno=1",
        "UPDATE Alumno SET IDAlumno=3000000000 WHERE IDAlumno=1;"
        "UPDATE AlumnoPte_MatDet SET CodAlumno=3000000000;"
        "UPDATE Seccion_AlumnoPte SET CodAlumno=3000000000",
        "UPDATE MateriaDetalles SET IDMateriaDetalles=3000000000 WHERE IDMateriaDetalles=3111;"
        "UPDATE AlumnoPte_MatDet SET CodMatDet=3000000000",
        "UPDATE AlumnoPte_MatDet SET CodAlumno=3000000000",
        "UPDATE AlumnoPte_MatDet SET CodMatDet=3000000000",
        "UPDATE AlumnoPte_MatDet SET IDAlumnoPte_MatDet=3000000000;"
        "UPDATE EvaluacionPte SET CodAlumnoPte_MatDet=3000000000",
        "INSERT INTO Personal (IDPersonal) VALUES (3000000000);"
        "INSERT INTO Profesor_Pte VALUES (3000000000,3111)",
        "UPDATE Curso SET Orden=3000000000 WHERE IDCurso=32"})
    ExpectError(OpenAfter(damage), 6);
}

TEST(RegisterBadInputTest, TextsThatAreNoNumbersAreAMismatch) {
  for (const auto* const damage :
       {"UPDATE AlumnoPte_MatDet SET Orden='x'", "UPDATE AlumnoPte_MatDet SET CodAlumno='x'",
        "UPDATE AlumnoPte_MatDet SET CodMatDet='x'",
        "UPDATE Seccion SET codCurso='x' WHERE IDSeccion=331;"
        "UPDATE Alumno SET codSeccion=331 WHERE IDAlumno=1",
        "UPDATE Seccion SET codCurso=-5 WHERE IDSeccion=331;"
        "UPDATE Alumno SET codSeccion=331 WHERE IDAlumno=1",
        "UPDATE NumEvaluacion SET Final='x' WHERE IDNumEvaluacion=1",
        "UPDATE Curso SET Orden='x' WHERE IDCurso=32"})
    ExpectError(OpenAfter(damage), 13);
}

TEST(RegisterBadInputTest, AnyValueButZeroIsATrueFlag) {
  // It decides the table that the row of the evaluation goes to.
  const auto run = OpenAfter("UPDATE NumEvaluacion SET Final=7 WHERE IDNumEvaluacion=2",
                             kProperties + kProperties + TakeIn(2) + kAccept + kAccept + kAccept);
  EXPECT_THAT(run.Sql(), Contains(InsertFinal(1, 1, 2).back()));
}

TEST(RegisterBadInputTest, ASubjectDetailWithTwoTeachersIsADuplicateKey) {
  const auto run = OpenAfter(
      "INSERT INTO Profesor_Pte VALUES (1,3112); INSERT INTO Profesor_Pte VALUES (2,3112)");
  ExpectError(run, 457);
}

TEST(RegisterBadInputTest, ACourseThatIsGoneHasNoOrder) {
  const auto run = RunScript(
      SmallSchool(), ChooseSection(321) + "sql \"DELETE FROM Curso WHERE IDCurso=32\"\n" + kAccept);
  ExpectError(run, 3021);
}

TEST(RegisterBadInputTest, AMissingTableOrColumnIsTheEnginesError) {
  for (const auto* const damage :
       {"DROP TABLE AlumnoPte_MatDet", "DROP TABLE EvaluacionActaPte", "DROP TABLE BloqueoPte",
        "DROP TABLE Profesor_Pte", "DROP TABLE Seccion_AlumnoPte", "DROP TABLE NumEvaluacion",
        "ALTER TABLE Materia RENAME COLUMN Optativa TO Otra",
        "ALTER TABLE Alumno RENAME COLUMN Apellido_2 TO Otra"}) {
    const auto run = OpenAfter(damage, "nodo 123\n" + kCancel);
    EXPECT_THAT(run.Of("error"), ElementsAre(StartsWith("-2147467259 " + EngineText("no such "))))
        << run.Text();
    // The program lives: the screen opens again.
    EXPECT_THAT(run.After("pulsar cmdCancelar"),
                ElementsAre("descarga frmPendientes", "vuelve 123"));
  }
}

TEST(RegisterBadInputTest, AMissingTableOfTheChoiceIsTheEnginesError) {
  const SmallSchool school;
  school.Sql("DROP TABLE Centro_TipoEnsenanza");
  const auto run = RunScript(school, "nodo 123\n");
  EXPECT_THAT(run.Of("error"),
              ElementsAre(StartsWith("-2147467259 " + EngineText("no such table"))));
  EXPECT_EQ(run.status, 1);
}

}  // namespace
}  // namespace quorvane::test
