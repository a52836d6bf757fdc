#include "apps/escuela/SchoolCheck.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"

namespace quorvane::test {
namespace {

class SchoolCheckTest : public testing::Test {
 protected:
  std::vector<std::string> Structure(SchoolCheck::For whom = SchoolCheck::For::Module) {
    return SchoolCheck(school_.Db()).Structure(whom);
  }
  std::vector<std::string> Rows() { return SchoolCheck(school_.Db()).Rows(); }
  void Change(const std::string& statements) { school_.Sql(statements); }

  OpenSchool school_;
};

TEST_F(SchoolCheckTest, AForeignDatabaseIsOneFinding) {
  const TempFolder folder;
  Opened<sqlite::SqliteConnection> foreign(folder / "a.sqlite", "", sqlite::OpenMode::Create);
  foreign.Execute("CREATE TABLE Cosas (A INTEGER)");
  EXPECT_THAT(SchoolCheck(foreign).Structure(SchoolCheck::For::Module),
              ElementsAre("La base de datos no es una escuela: no tiene ninguna de sus tablas"));
}

TEST_F(SchoolCheckTest, AFailureToReadIsAnErrorAndNoMissingTable) {
  school_.Db().Observe([](const Connection&, const std::string&) {
    throw RuntimeError(ErrorNumber::StatementFailed, "disk I/O error");
  });
  EXPECT_THROW(Structure(), RuntimeError);
}

TEST_F(SchoolCheckTest, NamesTheMissingTablesAndColumns) {
  Change("DROP TABLE Profesor_Pte; ALTER TABLE Alumno RENAME COLUMN FechaBaja TO Baja");
  EXPECT_THAT(Structure(), ElementsAre("Falta la tabla Profesor_Pte",
                                       "Falta la columna FechaBaja en la tabla Alumno"));
}

TEST_F(SchoolCheckTest, TheHostsColumnsAreTheHostsAffair) {
  Change("ALTER TABLE Usuario DROP COLUMN CodPerfil");
  EXPECT_THAT(Structure(), IsEmpty());
  EXPECT_THAT(Structure(SchoolCheck::For::Host),
              ElementsAre("Falta la columna CodPerfil en la tabla Usuario"));
}

TEST_F(SchoolCheckTest, TheHostsListOfStudentsNeedsNoSectionForTheModule) {
  Change("ALTER TABLE Seccion_Alumno DROP COLUMN CodSeccion");
  EXPECT_THAT(Structure(), IsEmpty());
}

TEST_F(SchoolCheckTest, ColumnsWrittenByPositionMustStandInTheirPlace) {
  Change(
      "DROP TABLE Profesor_Pte;"
      "CREATE TABLE Profesor_Pte (CodMatDet INTEGER, CodProfesor INTEGER)");
  EXPECT_THAT(
      Structure(),
      ElementsAre(
          "La columna CodProfesor de la tabla Profesor_Pte está en el lugar 2 y debe estar en el 1",
          "La columna CodMatDet de la tabla Profesor_Pte está en el lugar 1 y debe estar en el "
          "2"));
}

TEST_F(SchoolCheckTest, AColumnTooManyStopsWritingByPosition) {
  Change("ALTER TABLE BloqueoPte ADD COLUMN Hora TEXT");
  EXPECT_THAT(Structure(), ElementsAre("La tabla BloqueoPte tiene 6 columnas y debe tener 5"));
}

TEST_F(SchoolCheckTest, WhatTheModuleLeavesFreeIsFree) {
  Change(
      "ALTER TABLE Seccion_AlumnoPte RENAME COLUMN Posicion TO Lugar;"
      "DROP TABLE EvaluacionActaPte;"
      "CREATE TABLE evaluacionactapte (IDEvaluacionActaPte INTEGER PRIMARY KEY, "
      "CodAlumnoPte_MatDet, CodNumEvaluacion, UltimaEvaluada, RE_AC_DIV, CodNotaObservacion, "
      "CODNOTA, Evaluado); DROP TABLE PublicacionPte;"
      "CREATE TABLE PublicacionPte (IDPublicacionPte INTEGER PRIMARY KEY, CodSeccion, "
      "CodPropietario, Tipo, CodNumEvaluacion); ALTER TABLE Alumno ADD COLUMN Telefono TEXT");
  EXPECT_THAT(Structure(), IsEmpty());
}

TEST_F(SchoolCheckTest, CountsOrphans) {
  Change(
      "INSERT INTO AlumnoPte_MatDet VALUES (9001,9000,1,1,0),(9002,1,9000,1,0);"
      "INSERT INTO EvaluacionPte VALUES (9001,9999,1,0,0,0,0,0,0,0);"
      "INSERT INTO Seccion_AlumnoPte VALUES (5,9000,0,0);"
      "INSERT INTO Profesor_Pte VALUES (9000,9000); INSERT INTO BloqueoPte VALUES (1,1,1,1,77)");
  EXPECT_THAT(Rows(),
              ElementsAre("Huérfanas en AlumnoPte_MatDet: 1 fila cuyo CodAlumno no está en Alumno",
                          "Huérfanas en AlumnoPte_MatDet: 1 fila cuyo CodMatDet no está en "
                          "MateriaDetalles",
                          "Huérfanas en EvaluacionPte: 1 fila cuyo CodAlumnoPte_MatDet no está en "
                          "AlumnoPte_MatDet",
                          "Huérfanas en Seccion_AlumnoPte: 1 fila cuyo CodAlumno no está en Alumno",
                          "Huérfanas en Profesor_Pte: 1 fila cuyo CodMatDet no está en "
                          "MateriaDetalles",
                          "Huérfanas en Profesor_Pte: 1 fila cuyo CodProfesor no está en Personal",
                          "Huérfanas en BloqueoPte: 1 fila cuyo CodPublicacion no está en "
                          "PublicacionPte"));
}

TEST_F(SchoolCheckTest, NobodyIsNoOrphan) {
  Change("UPDATE Profesor_Pte SET CodProfesor=0; UPDATE Seccion SET CodTutor=0");
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(SchoolCheckTest, CountsDoubles) {
  const std::string pending =
      ", CodAlumno, CodMatDet, 1, 0 FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=1;";
  Change("INSERT INTO AlumnoPte_MatDet SELECT 9001" + pending +
         "INSERT INTO AlumnoPte_MatDet SELECT 9002" + pending +
         "INSERT INTO EvaluacionPte VALUES (9001,1,2,0,0,0,0,0,0,0);"
         "INSERT INTO EvaluacionActaPte VALUES (9001,1,4,0,0,0,0,0);"
         "INSERT INTO Seccion_AlumnoPte SELECT * FROM Seccion_AlumnoPte WHERE CodSeccion=9");
  EXPECT_THAT(
      Rows(),
      ElementsAre(
          "Dobles en AlumnoPte_MatDet: 1 valor repetido de CodAlumno, CodMatDet",
          "Dobles en EvaluacionPte: 1 valor repetido de CodAlumnoPte_MatDet, CodNumEvaluacion",
          "Dobles en EvaluacionActaPte: 1 valor repetido de CodAlumnoPte_MatDet, "
          "CodNumEvaluacion",
          "Dobles en Seccion_AlumnoPte: " +
              std::to_string(school_.Number("SELECT COUNT(DISTINCT CodAlumno) FROM "
                                            "Seccion_AlumnoPte WHERE CodSeccion=9")) +
              " valores repetidos de CodSeccion, CodAlumno"));
}

TEST_F(SchoolCheckTest, FindsDoubledKeysWhereTheTableHasNone) {
  Change(
      "CREATE TABLE Copia AS SELECT * FROM Alumno; DROP TABLE Alumno;"
      "ALTER TABLE Copia RENAME TO Alumno; UPDATE Alumno SET IDAlumno=1 WHERE IDAlumno=2");
  EXPECT_THAT(Rows(), Contains("Dobles en Alumno: 1 valor repetido de IDAlumno"));
}

TEST_F(SchoolCheckTest, FindsGradesInTheWrongTable) {
  Change(
      "INSERT INTO EvaluacionPte VALUES (9001,1,4,0,0,0,0,0,0,0);"
      "INSERT INTO EvaluacionActaPte VALUES (9001,1,1,0,0,0,0,0)");
  EXPECT_THAT(Rows(), ElementsAre("Fuera de lugar en EvaluacionPte: 1 fila de una evaluación final",
                                  "Fuera de lugar en EvaluacionActaPte: 1 fila de una evaluación "
                                  "ordinaria"));
}

TEST_F(SchoolCheckTest, ChangesNothing) {
  const auto before = school_.Number("SELECT total_changes()");
  Structure();
  Rows();
  EXPECT_EQ(school_.Number("SELECT total_changes()"), before);
}

}  // namespace
}  // namespace quorvane::test
