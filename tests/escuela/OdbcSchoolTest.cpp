// Schools behind a connection string, made, checked and mended by the program.

#include <fstream>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolCheck.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class OdbcSchoolTest : public testing::Test {
 protected:
  /// Runs the program; what it printed.
  std::string Escuela(const std::string& arguments) {
    const auto outcome = RunCommand(QUORVANE_ESCUELA " " + arguments);
    status = outcome.status;
    return outcome.text;
  }

  void EmptyDatabase() const { std::ofstream{path}; }

  int Tables() const {
    Opened<sqlite::SqliteConnection> database(path, "", sqlite::OpenMode::Create);
    return database.Execute("SELECT COUNT(*) FROM sqlite_master").Fields(0).Long();
  }

  TempFolder folder;
  std::string path = folder / "escuela.sqlite";
  std::string string = "Driver=SQLite3;PWD=secreto;Database=" + path;
  std::string given = "--odbc '" + string + "'";
  int status = -1;
};

TEST_F(OdbcSchoolTest, IsMadeInADatabaseThatIsThere) {
  EXPECT_THAT(Escuela("crear " + given), HasSubstr("No se puede conectar"));
  EXPECT_EQ(status, 1);
  EmptyDatabase();
  const auto made = Escuela("crear " + given);
  EXPECT_EQ(made, "Creada la escuela vacía Driver=SQLite3;Database=" + path + "\n");
  EXPECT_EQ(status, 0);
  EXPECT_THAT(Escuela("comprobar " + given),
              testing::EndsWith("\nApta para el módulo, sin avisos\n"));
}

TEST_F(OdbcSchoolTest, IsTheSameAsInAFile) {
  EmptyDatabase();
  const auto file = folder / "fichero.sqlite";
  for (const std::string order : {"demo", "generar --alumnos 30 --semilla 7"}) {
    std::remove(path.c_str());
    std::remove(file.c_str());
    EmptyDatabase();
    EXPECT_THAT(Escuela(std::string(order).append(" ").append(given)),
                StartsWith("Creada la escuela"));
    EXPECT_EQ(status, 0);
    EXPECT_THAT(Escuela(std::string(order).append(" ").append(file)),
                StartsWith("Creada la escuela"));
    EXPECT_EQ(Escuela("comprobar " + given), Escuela("comprobar " + file));
    EXPECT_EQ(Escuela("bloqueos " + given), Escuela("bloqueos " + file));
    for (const auto& table : SchoolTables()) {
      const auto one = SchoolAddress::Odbc(string).Open("");
      const auto other = SchoolAddress::File(file).Open("");
      const auto select = "SELECT COUNT(*) FROM " + table.name;
      EXPECT_EQ(one->Execute(select).Fields(0).Long(), other->Execute(select).Fields(0).Long());
    }
  }
}

TEST_F(OdbcSchoolTest, IsNeverWrittenOver) {
  {
    Opened<sqlite::SqliteConnection> database(path, "", sqlite::OpenMode::Create);
    database.Execute("CREATE TABLE Nota (IDNota int)");
  }
  for (const auto* const order : {"crear ", "demo ", "generar --alumnos 3 --semilla 1 "}) {
    EXPECT_EQ(Escuela(order + given),
              "quorvane-escuela: No se puede crear la escuela en Driver=SQLite3;Database=" + path +
                  ": ya tiene la tabla Nota\n");
    EXPECT_EQ(status, 1);
  }
  EXPECT_EQ(Tables(), 1);
}

TEST_F(OdbcSchoolTest, LeavesNothingWhenItsMakingFails) {
  EmptyDatabase();
  try {
    MakeSchool(SchoolAddress::Odbc(string), [](Connection& school) {
      school.Execute("INSERT INTO Profesor_Pte VALUES (1,1)");
      school.Execute("INSERT INTO Nada VALUES (1)");
    });
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.Description(), HasSubstr("no such table: Nada"));
    EXPECT_THAT(error.Description(), HasSubstr("No ha quedado nada escrito"));
    EXPECT_THAT(error.Description(), Not(HasSubstr("secreto")));
  }
  EXPECT_EQ(Tables(), 0);
  MakeSchool(SchoolAddress::Odbc(string), [](Connection&) {});
  EXPECT_GT(Tables(), 20);
}

TEST_F(OdbcSchoolTest, ShowsAndRemovesItsLocks) {
  EmptyDatabase();
  Escuela("demo " + given);
  EXPECT_THAT(Escuela("bloqueos " + given), StartsWith("Publicación 1: usuario 2"));
  EXPECT_EQ(Escuela("bloqueos --borrar 1 " + given), "Borrada la publicación 1 con sus bloqueos\n");
  EXPECT_EQ(Escuela("bloqueos --borrar 1 " + given), "No hay ninguna publicación 1\n");
  EXPECT_EQ(status, 1);
  EXPECT_EQ(Escuela("bloqueos " + given), "No hay publicaciones ni bloqueos\n");
}

TEST_F(OdbcSchoolTest, WithoutItsTablesIsNone) {
  EmptyDatabase();
  EXPECT_EQ(Escuela("comprobar " + given),
            "La base de datos no es una escuela: no tiene ninguna de sus tablas\nNo apta para el "
            "módulo\n");
  EXPECT_EQ(status, 1);
  EXPECT_THAT(Escuela("bloqueos " + given), HasSubstr("no es una escuela"));
}

TEST_F(OdbcSchoolTest, StandsInTheFilesPlaceAndNotBesideIt) {
  for (const auto& arguments : {std::string("crear"), "crear a " + given, "demo b " + given}) {
    EXPECT_THAT(Escuela(arguments), HasSubstr("FICHERO"));
    EXPECT_EQ(status, 2) << arguments;
  }
}

}  // namespace
}  // namespace quorvane::test
