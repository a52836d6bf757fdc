// The program quorvane-escuela from outside.

#include <fstream>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/NewSchool.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class ProgramTest : public testing::Test {
 protected:
  static constexpr auto kForeign =
      "La base de datos no es una escuela: no tiene ninguna de sus tablas\n"
      "No apta para el módulo\n";

  void Change(const std::string& statement) const {
    Opened<sqlite::SqliteConnection>(path_, "", sqlite::OpenMode::Create).Execute(statement);
  }

  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
};

TEST_F(ProgramTest, MakesAnEmptySchoolThatIsFit) {
  EXPECT_EQ(Escuela("crear " + path_).status, 0);
  EXPECT_THAT(
      Escuela("comprobar " + path_),
      FieldsAre(0,
                "Sin contraseñas: quien abre el fichero entra como cualquiera de sus usuarios\n"
                "Apta para el módulo, sin avisos\n"));
  EXPECT_EQ(folder_.Files(), 1U);
}

TEST_F(ProgramTest, MakesTheSampleSchoolAndTellsItsUsers) {
  EXPECT_THAT(Escuela("demo " + path_),
              FieldsAre(0, AllOf(HasSubstr("tutora3a"), HasSubstr("una sola materia pendiente"))));
  EXPECT_EQ(Escuela("comprobar " + path_).status, 0);
}

TEST_F(ProgramTest, TheSameSeedGivesTheSameFile) {
  const auto generate = [&](const std::string& name, const std::string& seed) {
    const auto path = folder_ / name;
    const auto made = Escuela("generar " + path + " --alumnos 700 --semilla " + seed);
    EXPECT_EQ(made.status, 0) << made.text;
    return Content(path);
  };
  const auto one = generate("uno", "7");
  EXPECT_EQ(one, generate("dos", "7"));
  EXPECT_NE(one, generate("tres", "8"));
  EXPECT_EQ(Escuela("comprobar " + (folder_ / "uno")).status, 0);
  Opened<sqlite::SqliteConnection> school(folder_ / "uno", "");
  const auto number = [&](const std::string& select) {
    return school.Execute(select).Fields(0).Long();
  };
  EXPECT_EQ(number("SELECT COUNT(*) FROM Alumno"), 700);
  // Sections are of one size, but for the last.
  EXPECT_EQ(number("SELECT MAX(N) FROM (SELECT COUNT(*) AS N FROM Alumno GROUP BY CodSeccion)"),
            30);
}

TEST_F(ProgramTest, GeneratesTheSmallestSchool) {
  EXPECT_EQ(Escuela("generar " + path_ + " --alumnos 1 --semilla 0").status, 0);
  EXPECT_EQ(Escuela("comprobar " + path_).status, 0);
}

TEST_F(ProgramTest, NeverOverwrites) {
  std::ofstream(path_) << "de otro";
  for (const std::string command : {"crear ", "demo ", "generar --alumnos 5 --semilla 1 "})
    EXPECT_THAT(Escuela(command + path_), FieldsAre(1, "quorvane-escuela: No se puede crear " +
                                                           path_ + ": el archivo ya existe\n"))
        << command;
  EXPECT_EQ(Content(path_), "de otro");
}

TEST_F(ProgramTest, ChecksWhatIsMissingDoubledAndOrphaned) {
  Escuela("demo " + path_);
  Change("INSERT INTO Seccion_AlumnoPte VALUES (5,9000,0,0)");
  EXPECT_THAT(
      Escuela("comprobar " + path_),
      FieldsAre(1,
                "Huérfanas en Seccion_AlumnoPte: 1 fila cuyo CodAlumno no está en Alumno\n"
                "Sin contraseñas: quien abre el fichero entra como cualquiera de sus usuarios\n"
                "Apta para el módulo, con avisos\n"));
  Change("DROP TABLE FechaNotas");
  EXPECT_THAT(Escuela("comprobar " + path_),
              FieldsAre(1, "Falta la tabla FechaNotas\nNo apta para el módulo\n"));
}

TEST_F(ProgramTest, ShowsAndRemovesLocks) {
  for (const auto& school : {path_, "--odbc 'Driver=SQLite3;Database=" + path_ + "'"}) {
    SCOPED_TRACE(school);
    std::remove(path_.c_str());
    Escuela("demo " + path_);
    EXPECT_THAT(
        Escuela("bloqueos " + school),
        FieldsAre(0, AllOf(StartsWith("Publicación 1: usuario 2 (jefatura), 2ª Evaluación\n"),
                           HasSubstr("\n  Lengua Castellana y Literatura (1º ESO B)\n"))));
    EXPECT_EQ(Escuela("bloqueos " + school + " --borrar 2").status, 1);
    EXPECT_THAT(Escuela("bloqueos --borrar 1 " + school),
                FieldsAre(0, "Borrada la publicación 1 con sus bloqueos\n"));
    EXPECT_THAT(Escuela("bloqueos --borrar 1 " + school),
                FieldsAre(1, "No hay ninguna publicación 1\n"));
    EXPECT_EQ(Escuela("bloqueos " + school).text, "No hay publicaciones ni bloqueos\n");
  }
}

TEST_F(ProgramTest, TellsWhyAFileIsNoSchool) {
  EXPECT_THAT(Escuela("comprobar " + path_), FieldsAre(1, HasSubstr("el archivo no existe")));
  std::ofstream(path_).close();
  EXPECT_THAT(Escuela("comprobar " + path_).text, HasSubstr("el archivo está vacío"));
  std::ofstream(path_) << "un texto cualquiera";
  EXPECT_THAT(Escuela("bloqueos " + path_).text, HasSubstr("file is not a database"));
  std::remove(path_.c_str());
  Change("CREATE TABLE Cosas (A INTEGER)");
  EXPECT_EQ(Escuela("bloqueos " + path_).status, 1);
  EXPECT_EQ(Escuela("comprobar " + path_).text, kForeign);
}

TEST_F(ProgramTest, RefusesBadArguments) {
  for (const std::string arguments :
       {"", "borrar x", "crear", "crear a b", "generar x", "generar x --alumnos 5",
        "generar x --alumnos 0 --semilla 1", "generar x --alumnos muchos --semilla 1",
        "generar x --alumnos 600000 --semilla 1", "bloqueos x --borrar", "demo x --otra",
        "usuarios", "usuarios x clave", "usuarios x quitar", "usuarios x otra",
        "usuarios x listar 1"})
    EXPECT_THAT(Escuela(arguments), FieldsAre(2, HasSubstr("Pruebe quorvane-escuela --help")))
        << arguments;
  EXPECT_THAT(Escuela("generar x").text, HasSubstr("Falta --alumnos"));
  EXPECT_THAT(Escuela("crear").text, HasSubstr("Falta FICHERO"));
  EXPECT_THAT(Escuela("crear a b").text, HasSubstr("No se esperaba b"));
}

TEST_F(ProgramTest, HasHelpOfEachCommand) {
  for (const std::string command :
       {"", "crear ", "demo ", "generar ", "comprobar ", "bloqueos ", "copiar ", "reparar ",
        "importar ", "estado ", "informe ", "historial ", "usuarios ", "usuarios x clave ",
        "usuarios x listar ", "usuarios x quitar "})
    EXPECT_THAT(Escuela(command + "--help"), FieldsAre(0, HasSubstr("Uso: quorvane-escuela")))
        << command;
}

/// Schools behind a connection string.
class OdbcSchoolTest : public ProgramTest {
 protected:
  void EmptyDatabase() const { std::ofstream{path_}; }
  int Tables() const {
    Opened<sqlite::SqliteConnection> database(path_, "", sqlite::OpenMode::Create);
    return database.Execute("SELECT COUNT(*) FROM sqlite_master").Fields(0).Long();
  }

  std::string string_ = "Driver=SQLite3;PWD=secreto;Database=" + path_;
  std::string given_ = "--odbc '" + string_ + "'";
};

TEST_F(OdbcSchoolTest, IsMadeInADatabaseThatIsThere) {
  EXPECT_THAT(Escuela("crear " + given_), FieldsAre(1, HasSubstr("No se puede conectar")));
  EmptyDatabase();
  EXPECT_THAT(Escuela("crear " + given_),
              FieldsAre(0, "Creada la escuela vacía Driver=SQLite3;Database=" + path_ + "\n"));
  EXPECT_THAT(Escuela("comprobar " + given_).text, EndsWith("\nApta para el módulo, sin avisos\n"));
}

TEST_F(OdbcSchoolTest, IsTheSameAsInAFile) {
  const auto file = folder_ / "fichero.sqlite";
  for (const std::string order : {"demo ", "generar --alumnos 30 --semilla 7 "}) {
    std::remove(path_.c_str());
    std::remove(file.c_str());
    EmptyDatabase();
    EXPECT_THAT(Escuela(order + given_), FieldsAre(0, StartsWith("Creada la escuela")));
    EXPECT_THAT(Escuela(order + file).text, StartsWith("Creada la escuela"));
    EXPECT_EQ(Escuela("comprobar " + given_).text, Escuela("comprobar " + file).text);
    EXPECT_EQ(Escuela("bloqueos " + given_).text, Escuela("bloqueos " + file).text);
    const auto one = SchoolAddress::Odbc(string_).Open("");
    const auto other = SchoolAddress::File(file).Open("");
    for (const auto& table : SchoolTables()) {
      const auto select = "SELECT COUNT(*) FROM " + table.name;
      EXPECT_EQ(one->Execute(select).Fields(0).Long(), other->Execute(select).Fields(0).Long());
    }
  }
}

TEST_F(OdbcSchoolTest, IsNeverWrittenOver) {
  Change("CREATE TABLE Nota (IDNota int)");
  for (const std::string order : {"crear ", "demo ", "generar --alumnos 3 --semilla 1 "})
    EXPECT_THAT(Escuela(order + given_),
                FieldsAre(1,
                          "quorvane-escuela: No se puede crear la escuela en "
                          "Driver=SQLite3;Database=" +
                              path_ + ": ya tiene la tabla Nota\n"))
        << order;
  EXPECT_EQ(Tables(), 1);
}

TEST_F(OdbcSchoolTest, LeavesNothingWhenItsMakingFails) {
  EmptyDatabase();
  try {
    MakeSchool(SchoolAddress::Odbc(string_), [](Connection& school) {
      school.Execute("INSERT INTO Profesor_Pte VALUES (1,1)");
      school.Execute("INSERT INTO Nada VALUES (1)");
    });
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.Description(),
                AllOf(HasSubstr("no such table: Nada"), HasSubstr("No ha quedado nada escrito"),
                      Not(HasSubstr("secreto"))));
  }
  EXPECT_EQ(Tables(), 0);
  MakeSchool(SchoolAddress::Odbc(string_), [](Connection&) {});
  EXPECT_GT(Tables(), 20);
}

TEST_F(OdbcSchoolTest, WithoutItsTablesIsNone) {
  EmptyDatabase();
  EXPECT_THAT(Escuela("comprobar " + given_), FieldsAre(1, kForeign));
  EXPECT_THAT(Escuela("bloqueos " + given_).text, HasSubstr("no es una escuela"));
}

TEST_F(OdbcSchoolTest, StandsInTheFilesPlaceAndNotBesideIt) {
  for (const auto& arguments : {std::string("crear"), "crear a " + given_, "demo b " + given_})
    EXPECT_THAT(Escuela(arguments), FieldsAre(2, HasSubstr("FICHERO"))) << arguments;
}

}  // namespace
}  // namespace quorvane::test
