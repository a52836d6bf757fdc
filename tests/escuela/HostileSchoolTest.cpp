// Schools that somebody has made to harm who opens them, or that a disk has harmed.

#include <fstream>
#include <string>
#include <vector>

#include "apps/escuela/FieldValues.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/AllScreens.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"

namespace quorvane::test {
namespace {

bool IsNumber(const SchemaColumn& column) {
  return column.kind != SchemaKind::Text && column.kind != SchemaKind::Date;
}

class HostileSchoolTest : public testing::Test {
 protected:
  void Change(const std::string& statements) { school_.Sql(statements); }
  [[nodiscard]] std::vector<std::string> Structure() {
    return SchoolCheck(school_.Db()).Structure(SchoolCheck::For::Module);
  }
  [[nodiscard]] std::vector<std::string> Rows() { return SchoolCheck(school_.Db()).Rows(); }
  /// The same table with the same rows and no keys or types.
  void Loosen(const SchemaTable& table) {
    std::string columns;
    for (const auto& column : table.columns) columns += (columns.empty() ? "" : ",") + column.name;
    Change("CREATE TABLE Suelta (" + columns + "); INSERT INTO Suelta SELECT * FROM " + table.name +
           "; DROP TABLE " + table.name + "; ALTER TABLE Suelta RENAME TO " + table.name);
  }

  OpenSchool school_;
};

TEST_F(HostileSchoolTest, AllScreensOpenOnTheSampleSchool) {
  const auto seen = AllScreens(school_.Path());
  for (const std::string form :
       {"frmPendientes", "frmAlumnoPendiente", "frmAlumnoMateria", "frmNotaManual1",
        "frmNotaManual", "frmNotaMateria", "frmNotaSeccionAlumno", "frmNotaSeccionMateria"})
    EXPECT_THAT(seen, HasSubstr("\nmuestra " + form + "\n"));
  EXPECT_EQ(ScreenError(school_.Path()), "");
}

TEST_F(HostileSchoolTest, AValueBeyondItsFieldIsFoundInWhicheverColumn) {
  const std::string bad[] = {"99999999999", "'x'", "-1e300", "x'00ff'", "''"};
  std::size_t turn = 0;
  auto columns = 0;
  for (const auto& table : SchoolTables()) {
    const auto row = " WHERE rowid=(SELECT MIN(rowid) FROM " + table.name + ")";
    for (const auto& column : table.columns) {
      if (!IsNumber(column) || column.kind == SchemaKind::Key) continue;
      auto value = bad[turn++ % std::size(bad)];
      // A flag is any number.
      if (column.kind == SchemaKind::Flag && value.find('\'') == std::string::npos) value = "'x'";
      const auto before =
          school_.FirstColumn("SELECT quote(" + column.name + ") FROM " + table.name + row);
      if (before.empty()) continue;
      Change("UPDATE " + table.name + " SET " + column.name + "=" + value + row);
      EXPECT_THAT(BadValues(school_.Db()),
                  ElementsAre(HasSubstr(table.name + "." + column.name + ": 1 fila")))
          << value;
      Change("UPDATE " + table.name + " SET " + column.name + "=" + before.front() + row);
      ++columns;
    }
  }
  EXPECT_GT(columns, 80);
  EXPECT_THAT(BadValues(school_.Db()), IsEmpty());
}

TEST_F(HostileSchoolTest, WhatEndsScreensIsFound) {
  Change("UPDATE Curso SET IDCurso=99999999999 WHERE IDCurso=1");
  EXPECT_THAT(ScreenError(school_.Path()), HasSubstr("error 6 "));
  EXPECT_THAT(Rows(), Contains(HasSubstr("Curso.IDCurso")));
}

// Some screens read a column into less than what its table holds.
TEST_F(HostileSchoolTest, AKeyTooLargeForTheScreenThatReadsItIsFound) {
  for (const std::string key :
       {"NumEvaluacion.IDNumEvaluacion=256", "NumEvaluacion.Orden=256", "Seccion.CodCurso=256",
        "Seccion.IDSeccion=32768", "MateriaDetalles.CodSeccion=32768", "Personal.IDPersonal=32768",
        "Usuario.IDUsuario=32768", "Usuario.CodPerfil=32768"}) {
    const auto table = key.substr(0, key.find('.'));
    Change("BEGIN; UPDATE " + table + " SET " + key.substr(table.size() + 1) +
           " WHERE rowid=(SELECT MAX(rowid) FROM " + table + ")");
    EXPECT_THAT(BadValues(school_.Db()),
                ElementsAre(HasSubstr(key.substr(0, key.find('=')) + ": 1 fila")));
    Change("ROLLBACK");
  }
}

// Odd values that are left alone must do no harm: whatever passes, opens.
TEST_F(HostileSchoolTest, OnWhatPassesAllScreensOpen) {
  const std::string odd[] = {"NULL", "'7'", "1.4", "-1", "' 3 '", "32767"};
  std::size_t turn = 0;
  auto passed = 0;
  for (const auto& table : SchoolTables()) {
    const auto& value = odd[turn++ % std::size(odd)];
    const auto row = " WHERE rowid=(SELECT MAX(rowid) FROM " + table.name + ")";
    std::string settings;
    for (const auto& column : table.columns)
      if (IsNumber(column) && column.kind != SchemaKind::Key)
        settings += (settings.empty() ? "" : ",") + column.name + "=" + value;
    if (settings.empty()) continue;
    OpenSchool school;
    school.Db().Execute("UPDATE " + table.name + " SET " + settings + row);
    const auto findings = SchoolCheck(school.Db()).Rows();
    const auto error = ScreenError(school.Path());
    EXPECT_TRUE(error.empty() || !findings.empty()) << table.name << " " << value << error;
    // Of rows that point nowhere a screen may be empty, but it opens.
    EXPECT_TRUE(error.empty() || !BadValues(school.Db()).empty() || error.starts_with("error 457 "))
        << table.name << " " << value << error;
    ++passed;
  }
  EXPECT_GT(passed, 20);
}

TEST_F(HostileSchoolTest, ARowWithoutAKeyHidesNoOrphans) {
  Change("UPDATE Seccion_AlumnoPte SET CodAlumno=987654 WHERE rowid=1");
  for (const auto& table : SchoolTables())
    if (table.name == "Alumno") Loosen(table);
  Change("INSERT INTO Alumno (Nombre) VALUES ('nadie')");
  EXPECT_THAT(Rows(), AllOf(Contains(HasSubstr("Sin clave en Alumno: 1 fila")),
                            Contains(HasSubstr("Huérfanas en Seccion_AlumnoPte: 1 fila"))));
}

TEST_F(HostileSchoolTest, AReferenceWithoutAValueIsAnOrphan) {
  Change("UPDATE Seccion_AlumnoPte SET CodAlumno=NULL WHERE rowid=1");
  EXPECT_THAT(Rows(), Contains(HasSubstr("Huérfanas en Seccion_AlumnoPte: 1 fila")));
}

TEST_F(HostileSchoolTest, AKeyBehindWhichThereIsNoOtherIsFound) {
  Change("UPDATE PublicacionPte SET IDPublicacionPte=2147483647 WHERE IDPublicacionPte=1");
  EXPECT_THAT(Rows(), Contains(HasSubstr("Última clave en PublicacionPte")));
}

TEST_F(HostileSchoolTest, AViewInTheTablesPlaceIsNoSchoolAndNobodyReadsIt) {
  // A school need not have these two, and yet they are read.
  UserPasswords(school_.Db()).Set(3, "alcachofas azules");
  for (const auto& statement : HistoryTableSql(EngineReached(school_.Db()), "")) Change(statement);
  std::vector<std::string> tables = {"ClaveUsuario", "HistorialNotas"};
  for (const auto& table : SchoolTables()) tables.push_back(table.name);
  for (const auto& table : tables) {
    std::string columns;
    for (const auto& name :
         school_.FirstColumn("SELECT name FROM pragma_table_info('" + table + "')"))
      columns += (columns.empty() ? "i AS " : ",i AS ") + name;
    // It has no end: to look at its first row by any order takes for ever.
    Change("ALTER TABLE " + table + " RENAME TO Guardada; CREATE VIEW " + table +
           " AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) SELECT " + columns +
           " FROM n");
    EXPECT_THAT(Structure(), ElementsAre("La tabla " + table + " no es una tabla, sino una vista"));
    for (const auto driver : {false, true})
      EXPECT_THAT(AllScreens(school_.Path(), driver), HasSubstr("sino una vista\n"));
    Change("DROP VIEW " + table + "; ALTER TABLE Guardada RENAME TO " + table);
  }
  EXPECT_THAT(Structure(), IsEmpty());
}

TEST_F(HostileSchoolTest, NoOrderReadsAViewInThePlaceOfAnOwnTable) {
  for (const std::string table : {"ClaveUsuario", "historialnotas"}) {
    Change("CREATE VIEW " + table +
           " AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n) SELECT i AS "
           "IDUsuario, i AS Clave, i AS IDHistorial, i AS Momento FROM n");
    for (const std::string order :
         {"comprobar F", "usuarios F", "usuarios F quitar 3", "historial F ver",
          "historial F purgar --antes 2030-01-01", "reparar F"}) {
      auto arguments = order;
      arguments.replace(arguments.find('F'), 1, school_.Path());
      EXPECT_THAT(RunCommand("timeout 20 " QUORVANE_ESCUELA " " + arguments),
                  FieldsAre(1, HasSubstr("sino una vista")))
          << order;
    }
    EXPECT_THAT(RunCommand("timeout 20 " QUORVANE_GUION " --odbc 'Driver=SQLite3;Database=" +
                           school_.Path() + "' /dev/null"),
                FieldsAre(2, HasSubstr("sino una vista")));
    Change("DROP VIEW " + table);
  }
}

TEST_F(HostileSchoolTest, AnOwnTableThatRefusesWhatIsWrittenIsFound) {
  Change("CREATE VIRTUAL TABLE HistorialNotas USING fts5(Momento)");
  EXPECT_THAT(Structure(), ElementsAre("La tabla HistorialNotas no es una tabla, sino una vista"));
  Change(
      "DROP TABLE HistorialNotas;"
      "CREATE TABLE ClaveUsuario (IDUsuario INTEGER, Clave TEXT AS ('x'))");
  EXPECT_THAT(Structure(), ElementsAre("La columna Clave de la tabla ClaveUsuario es calculada, y "
                                       "no se puede escribir en ella"));
}

TEST_F(HostileSchoolTest, AVirtualTableIsNoneEither) {
  Change("DROP TABLE Curso; CREATE VIRTUAL TABLE Curso USING fts5(IDCurso)");
  EXPECT_THAT(Structure(), ElementsAre("La tabla Curso no es una tabla, sino una vista"));
}

TEST_F(HostileSchoolTest, AColumnThatRefusesWhatIsWrittenIsFound) {
  Change(
      "DROP TABLE Profesor_Pte; CREATE TABLE Profesor_Pte (CodProfesor INTEGER, "
      "CodMatDet INTEGER AS (CodProfesor+1))");
  EXPECT_THAT(Structure(), ElementsAre("La columna CodMatDet de la tabla Profesor_Pte es "
                                       "calculada, y no se puede escribir en ella"));
}

TEST_F(HostileSchoolTest, DamagedPagesAreFound) {
  EXPECT_THAT(SchoolCheck(school_.Db()).Damage(), IsEmpty());
  const auto root = school_.Number("SELECT rootpage FROM sqlite_master WHERE name='Alumno'");
  const auto page = school_.Number("PRAGMA page_size");
  Change("PRAGMA wal_checkpoint(TRUNCATE)");
  school_.Db().Close();
  std::fstream file(school_.Path(), std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(std::streamoff{page} * (root - 1) + 8);
  file << std::string(64, '\x7F');
  file.close();
  EXPECT_THAT(Escuela("comprobar " + school_.Path()),
              FieldsAre(1, AllOf(testing::AnyOf(HasSubstr("dañado"), HasSubstr("malformed")),
                                 Not(HasSubstr("\nApta")))));
}

TEST_F(HostileSchoolTest, StatementsOfAnyDepthAreRefusedByTheirNumber) {
  const std::string open(300'000, '(');
  const std::string close(300'000, ')');
  for (const auto& statement :
       {"SELECT " + open + "1" + close, "SELECT * FROM Alumno LEFT JOIN (" + open,
        "SELECT * FROM " + open + "Alumno LEFT JOIN (" + close,
        "SELECT * FROM A LEFT JOIN (B LEFT JOIN " + open + "C" + close + ")",
        "SELECT 1 " + std::string(300'000, '+') + "'a'",
        "SELECT 1 WHERE " + std::string(300'000, '[')})
    try {
      school_.Db().Execute(statement);
      ADD_FAILURE() << statement.substr(0, 40);
    } catch (const RuntimeError& error) {
      EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed));
    }
}

}  // namespace
}  // namespace quorvane::test
