#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestSchool.h"

namespace quorvane::test {
namespace {

/// Runs the program through a shell, with nothing to read unless the arguments say so.
Outcome Program(const std::string& arguments) {
  return RunCommand("( '" QUORVANE_GUION "' " + arguments + " ) </dev/null");
}

void ExpectEnd(const Outcome& ended, int status, const std::string& printed) {
  EXPECT_EQ(ended.status, status);
  EXPECT_EQ(ended.text, printed);
}

class ProgramTest : public testing::Test {
 protected:
  /// A file of that content that goes with the test.
  std::string File(const std::string& content) {
    auto path = folder_ / std::to_string(folder_.Files());
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  /// Runs it on the school.
  [[nodiscard]] Outcome OnSchool(const std::string& arguments) const {
    return Program("--bd " + school.Path() + " " + arguments);
  }

  TestSchool school;

 private:
  TempFolder folder_;
};

TEST_F(ProgramTest, PlaysAFile) {
  ExpectEnd(OnSchool(File("nodo 11 # nada\nver\n")), 0,
            "> nodo 11\nvuelve 11\n> ver\nrechazo ver: no hay ningún formulario abierto\n");
}

TEST_F(ProgramTest, PlaysStandardInputAsItIsWritten) {
  ExpectEnd(OnSchool("< " + File("nodo 0\n")), 0, "> nodo 0\nvuelve 0\n");
  // The second line is written only when the first has been played.
  const auto out = File("");
  const auto pipe = out + ".pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const auto ended =
      OnSchool("< " + pipe + " | tee " + out + " & { echo 'nodo 11'; until grep -q vuelve " + out +
               "; do sleep 0.01; done; echo 'nodo 12'; } > " + pipe + "; wait");
  ExpectEnd(ended, 0, "> nodo 11\nvuelve 11\n> nodo 12\nvuelve 12\n");
}

TEST_F(ProgramTest, AMistakeInStandardInputEndsItThere) {
  ExpectEnd(OnSchool("< " + File("nodo 11\n\nbailar\nnodo 12\n")), 2,
            "> nodo 11\nvuelve 11\nlínea 3: orden desconocida: bailar\n");
}

TEST_F(ProgramTest, EndsWithOneAfterAnError) {
  ExpectEnd(OnSchool(File("nodo 256\nnodo 11\n")), 1,
            "> nodo 256\nerror 6 Desbordamiento\n> nodo 11\nvuelve 11\n");
}

TEST_F(ProgramTest, EndsWithOneWhenTheSessionDoesntFitItsFields) {
  ExpectEnd(OnSchool("--usuario 70000"), 1, "error 6 Desbordamiento\n");
}

TEST_F(ProgramTest, AScriptWithAMistakePlaysNothing) {
  const auto script = File("sql \"INSERT INTO Usuario (IDUsuario) VALUES (1)\"\n\nabrir\n");
  ExpectEnd(OnSchool(script), 2, "línea 3: orden desconocida: abrir\n");
  EXPECT_TRUE(school.Rows("SELECT IDUsuario FROM Usuario").empty());
}

TEST_F(ProgramTest, HelpIsNoMistake) {
  const auto ended = Program("--help");
  EXPECT_EQ(ended.status, 0);
  for (const auto* option : {"--bd", "--odbc", "--entrada", "--usuario", "--perfil", "--centro",
                             "--sqlserver", "--inactiva", "--hoy", "SCRIPT"})
    EXPECT_THAT(ended.text, HasSubstr(option));
}

TEST_F(ProgramTest, BadArgumentsEndWithTwo) {
  const auto bd = "--bd " + school.Path();
  ExpectEnd(Program(""), 2,
            "Indique el centro con --bd o con --odbc, y solo con uno\n"
            "quorvane-guion --help muestra la ayuda\n");
  for (const auto& arguments : {bd + " --odbc DSN=x", bd + " --usuario x", bd + " --nada",
                                bd + " uno dos", std::string("--bd")})
    EXPECT_EQ(Program(arguments).status, 2) << arguments;
}

TEST_F(ProgramTest, AScriptThatCantBeReadEndsWithTwo) {
  for (const std::string script : {"/no/hay/tal.guion", "/"})
    ExpectEnd(OnSchool(script), 2, "No se puede leer el guion " + script + "\n");
}

TEST_F(ProgramTest, AFileThatIsNoSchoolEndsWithTwo) {
  const auto empty = File("");
  const auto foreign = File("esto no es una base de datos, ni lo ha sido nunca en su vida");
  const auto refused = [](const std::string& file, const std::string& reason) {
    const auto ended = Program("--bd " + file);
    EXPECT_EQ(ended.status, 2) << file;
    EXPECT_THAT(ended.text, AllOf(HasSubstr("base de datos " + file), HasSubstr(reason)));
  };
  refused("/no/hay/tal.sqlite", "el archivo no existe");
  refused("/", "es una carpeta");
  refused(empty, "el archivo está vacío");
  refused(foreign, "No se puede abrir");
  for (const auto& table : school.Rows("SELECT name FROM sqlite_master WHERE type='table'"))
    school.Sql("DROP TABLE [" + table + "]");
  school.Sql("CREATE TABLE Otra (a)");
  refused(school.Path(), "no es de ningún centro");
}

TEST_F(ProgramTest, TheDatabaseWithUsuarioMayBeAnother) {
  TestSchool other;
  EXPECT_EQ(Program("--bd " + school.Path() + " --entrada " + other.Path()).status, 0);
  EXPECT_EQ(Program("--bd " + school.Path() + " --entrada /no/hay/tal.sqlite").status, 2);
}

TEST_F(ProgramTest, PlaysThroughAnOdbcDriver) {
  const auto script = File("sql \"SELECT COUNT(*) FROM Alumno\"\nnodo 123\ncerrar\n");
  const auto byFile = OnSchool(script);
  ExpectEnd(Program("--odbc 'Driver=SQLite3;Database=" + school.Path() + "' " + script), 0,
            byFile.text);
}

TEST_F(ProgramTest, TakesTheUsersFromAnotherConnectionString) {
  const auto string = "'Driver=SQLite3;Database=" + school.Path() + "'";
  for (const auto& entrada : {string, school.Path()})
    EXPECT_EQ(
        Program("--odbc " + string + " --entrada " + entrada + " " + File("nodo 11\n")).status, 0);
  const auto ended = Program("--odbc " + string + " --entrada 'Driver=SQLite3;Database=/no/hay'");
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.text, HasSubstr("No se puede conectar"));
}

TEST_F(ProgramTest, TellsADriverThatIsNotThereWithoutThePassword) {
  const auto ended = Program("--odbc 'DSN=no_hay_tal;PWD=secreto'");
  EXPECT_EQ(ended.status, 2);
  EXPECT_THAT(ended.text, AllOf(HasSubstr("No se puede conectar con la base de datos: [IM002] "),
                                Not(HasSubstr("secreto"))));
}

TEST_F(ProgramTest, SqlPrintsRowsOfEveryKind) {
  ExpectEnd(OnSchool(File("sql \"SELECT 1, -2.5, NULL, 'Ñu \"\"x\"\"', 9e999\"\n"
                          "sql \"SELECT 1 WHERE 1=0\"\nsql \"SELEC\"\n")),
            0,
            "> sql \"SELECT 1, -2.5, NULL, 'Ñu \"\"x\"\"', 9e999\"\n"
            "fila [1,-2.5,null,\"Ñu \\\"x\\\"\",null]\n"
            "> sql \"SELECT 1 WHERE 1=0\"\n"
            "> sql \"SELEC\"\n"
            "rechazo sql \"SELEC\": near \"SELEC\": syntax error\n");
}

TEST(ScriptResultTest, PicksLinesByTheirWord) {
  ScriptResult result;
  result.lines = {"> ver",           "sql centro UNO", "> nodo 1",        "pitido",
                  "sql borrado DOS", "> nodo 1",       "sql centro TRES", "error 6 x"};
  EXPECT_THAT(result.Sql(), ElementsAre("UNO", "TRES"));
  EXPECT_THAT(result.Sql("borrado"), ElementsAre("DOS"));
  EXPECT_THAT(result.Of("error"), ElementsAre("6 x"));
  EXPECT_THAT(result.Of("pitido"), ElementsAre(""));
  EXPECT_THAT(result.After("nodo 1"), ElementsAre("sql centro TRES", "error 6 x"));
  EXPECT_TRUE(result.After("cerrar").empty());
}

TEST(TestSchoolTest, HasAllTablesAndNoRowsAndGoesWithTheObject) {
  std::string path;
  {
    const TestSchool school;
    path = school.Path();
    EXPECT_TRUE(school.Rows("SELECT * FROM NumEvaluacion").empty());
    school.Sql(
        "INSERT INTO Usuario (IDUsuario) VALUES (1); INSERT INTO Usuario (IDUsuario) "
        "VALUES (2);");
    EXPECT_EQ(school.Rows("SELECT IDUsuario, NULL, 'a' FROM Usuario ORDER BY 1"),
              (std::vector<std::string>{"1|NULL|a", "2|NULL|a"}));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace quorvane::test
