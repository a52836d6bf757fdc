// The program quorvane-escuela from outside.

#include <fstream>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

Outcome Escuela(const std::string& arguments) {
  return RunCommand(QUORVANE_ESCUELA " " + arguments);
}

void ChangeSchool(const std::string& path, const std::string& statement) {
  Opened<sqlite::SqliteConnection> school(path, "");
  school.Execute(statement);
}

class ProgramTest : public testing::Test {
 protected:
  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
};

TEST_F(ProgramTest, MakesAnEmptySchoolThatIsFit) {
  EXPECT_EQ(Escuela("crear " + path_).status, 0);
  const auto check = Escuela("comprobar " + path_);
  EXPECT_EQ(check.status, 0);
  EXPECT_EQ(check.text,
            "Sin contraseñas: quien abre el fichero entra como cualquiera de sus usuarios\n"
            "Apta para el módulo, sin avisos\n");
  EXPECT_EQ(folder_.Files(), 1U);
}

TEST_F(ProgramTest, MakesTheSampleSchoolAndTellsItsUsers) {
  const auto demo = Escuela("demo " + path_);
  EXPECT_EQ(demo.status, 0);
  EXPECT_THAT(demo.text, HasSubstr("tutora3a"));
  EXPECT_THAT(demo.text, HasSubstr("una sola materia pendiente"));
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
  EXPECT_EQ(school.Execute("SELECT COUNT(*) AS N FROM Alumno").Fields("N").Long(), 700);
  // Sections are of one size, but for the last.
  EXPECT_EQ(school
                .Execute("SELECT MAX(N) AS Mayor FROM (SELECT COUNT(*) AS N FROM Alumno GROUP BY "
                         "CodSeccion)")
                .Fields("Mayor")
                .Long(),
            30);
}

TEST_F(ProgramTest, GeneratesTheSmallestSchool) {
  EXPECT_EQ(Escuela("generar " + path_ + " --alumnos 1 --semilla 0").status, 0);
  EXPECT_EQ(Escuela("comprobar " + path_).status, 0);
}

TEST_F(ProgramTest, NeverOverwrites) {
  std::ofstream(path_) << "de otro";
  for (const std::string command : {"crear ", "demo ", "generar --alumnos 5 --semilla 1 "}) {
    const auto refused = Escuela(command + path_);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.text,
              "quorvane-escuela: No se puede crear " + path_ + ": el archivo ya existe\n");
  }
  EXPECT_EQ(Content(path_), "de otro");
}

TEST_F(ProgramTest, ChecksWhatIsMissingDoubledAndOrphaned) {
  Escuela("demo " + path_);
  ChangeSchool(path_, "INSERT INTO Seccion_AlumnoPte VALUES (5,9000,0,0)");
  auto check = Escuela("comprobar " + path_);
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.text,
            "Huérfanas en Seccion_AlumnoPte: 1 fila cuyo CodAlumno no está en Alumno\n"
            "Sin contraseñas: quien abre el fichero entra como cualquiera de sus usuarios\n"
            "Apta para el módulo, con avisos\n");
  ChangeSchool(path_, "DROP TABLE FechaNotas");
  check = Escuela("comprobar " + path_);
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.text, "Falta la tabla FechaNotas\nNo apta para el módulo\n");
}

TEST_F(ProgramTest, ShowsAndRemovesLocks) {
  Escuela("demo " + path_);
  auto locks = Escuela("bloqueos " + path_);
  EXPECT_EQ(locks.status, 0);
  EXPECT_THAT(locks.text, HasSubstr("Publicación 1: usuario 2 (jefatura), 2ª Evaluación\n"));
  EXPECT_THAT(locks.text, HasSubstr("\n  Lengua Castellana y Literatura (1º ESO B)\n"));
  EXPECT_EQ(Escuela("bloqueos " + path_ + " --borrar 2").status, 1);
  EXPECT_EQ(Escuela("bloqueos --borrar 1 " + path_).status, 0);
  locks = Escuela("bloqueos " + path_);
  EXPECT_EQ(locks.text, "No hay publicaciones ni bloqueos\n");
}

TEST_F(ProgramTest, TellsWhyAFileIsNoSchool) {
  const auto missing = Escuela("comprobar " + path_);
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.text, HasSubstr("el archivo no existe"));
  std::ofstream(path_).close();
  EXPECT_THAT(Escuela("comprobar " + path_).text, HasSubstr("el archivo está vacío"));
  std::ofstream(path_) << "un texto cualquiera";
  EXPECT_THAT(Escuela("bloqueos " + path_).text, HasSubstr("file is not a database"));
  const auto foreign = folder_ / "ajena.sqlite";
  {
    Opened<sqlite::SqliteConnection> other(foreign, "", sqlite::OpenMode::Create);
    other.Execute("CREATE TABLE Cosas (A INTEGER)");
  }
  EXPECT_EQ(Escuela("bloqueos " + foreign).status, 1);
  EXPECT_EQ(Escuela("comprobar " + foreign).text,
            "La base de datos no es una escuela: no tiene ninguna de sus tablas\n"
            "No apta para el módulo\n");
}

TEST_F(ProgramTest, RefusesBadArguments) {
  for (const std::string arguments :
       {"", "borrar x", "crear", "crear a b", "generar x", "generar x --alumnos 5",
        "generar x --alumnos 0 --semilla 1", "generar x --alumnos muchos --semilla 1",
        "generar x --alumnos 600000 --semilla 1", "bloqueos x --borrar", "demo x --otra",
        "usuarios", "usuarios x clave", "usuarios x quitar", "usuarios x otra",
        "usuarios x listar 1"}) {
    const auto refused = Escuela(arguments);
    EXPECT_EQ(refused.status, 2) << arguments;
    EXPECT_THAT(refused.text, HasSubstr("Pruebe quorvane-escuela --help")) << arguments;
  }
  EXPECT_THAT(Escuela("generar x").text, HasSubstr("Falta --alumnos"));
  EXPECT_THAT(Escuela("crear").text, HasSubstr("Falta FICHERO"));
  EXPECT_THAT(Escuela("crear a b").text, HasSubstr("No se esperaba b"));
}

TEST_F(ProgramTest, HasHelpOfEachCommand) {
  for (const std::string command :
       {"", "crear ", "demo ", "generar ", "comprobar ", "bloqueos ", "copiar ", "reparar ",
        "importar ", "estado ", "informe ", "historial ", "usuarios ", "usuarios x clave ",
        "usuarios x listar ", "usuarios x quitar "}) {
    const auto help = Escuela(command + "--help");
    EXPECT_EQ(help.status, 0) << command;
    EXPECT_THAT(help.text, HasSubstr("Uso: quorvane-escuela")) << command;
  }
}

}  // namespace
}  // namespace quorvane::test
