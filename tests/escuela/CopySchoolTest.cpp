// Schools copied between files and servers, by the program's own road.

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/CellLiteral.h"
#include "apps/escuela/CopySchool.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/SchoolGenerator.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/support/RunCommand.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using sqltext::Engine;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Rows = std::vector<std::string>;

const CopyWatch kNobody = {[](std::size_t, std::size_t) {}, [] { return false; }};

Rows RowsOf(Connection& school, const std::string& select) {
  Rows all;
  for (auto rows = school.Execute(select); !rows.Eof(); rows.MoveNext()) {
    std::string row;
    for (std::size_t i = 0; i < rows.Names().size(); ++i)
      row += (rows.Fields(i).IsNull() ? "NULL" : rows.Fields(i).Text()) + "|";
    all.push_back(row);
  }
  return all;
}

/// All rows of a school's file, table by table, as they are stored.
std::map<std::string, Rows> RowsOf(const std::string& path) {
  sqlite::SqliteConnection school(path, "");
  school.Open();
  std::map<std::string, Rows> content;
  for (const auto& table : SchoolTables())
    content[table.name] = RowsOf(school, "SELECT * FROM " + table.name + " ORDER BY rowid");
  return content;
}

void Change(const std::string& path, const std::string& statements) {
  sqlite::SqliteConnection school(path, "");
  school.Open();
  school.ExecuteScript(statements);
}

const auto* const kOdd =
    "INSERT INTO Alumno VALUES (900001,'O''Donnell \\ \"x\" [y] ? {z} :a $1 -- /*','uno\ndos\r\n\t',"
    "'ñÑ€ 漢字 😀\\\n',-5,NULL,-1,NULL);"
    "INSERT INTO Alumno VALUES (-3,'','\\','''',0,0,0,'2025/03/03');"
    "INSERT INTO Profesor_Pte VALUES (7,8),(7,8),(NULL,9),(7,8);"
    "INSERT INTO BloqueoPte VALUES (1,2,3,4,5),(1,2,3,4,5);";

class CopyTest : public testing::Test {
 protected:
  void SetUp() override {
    MakeSchoolFile(from, [](Connection& school) { DemoSchool(school).Build(); });
  }

  std::string Refusal(const SchoolAddress& destination) const {
    try {
      CopySchool(SchoolAddress::File(from), destination, kNobody);
    } catch (const RuntimeError& error) {
      return error.Description();
    }
    return {};
  }

  TempFolder folder;
  int asked = 0;
  std::string from = folder / "origen.sqlite";
  std::string to = folder / "copia.sqlite";
};

TEST_F(CopyTest, BringsAllRowsAsTheyWere) {
  Change(from, kOdd);
  const auto copy = CopySchool(SchoolAddress::File(from), SchoolAddress::File(to), kNobody);
  EXPECT_EQ(RowsOf(from), RowsOf(to));
  EXPECT_THAT(RowsOf(to)["Profesor_Pte"], Contains("7|8|").Times(3));
  EXPECT_EQ(copy.tables.size(), SchoolTables().size());
  for (const auto& table : copy.tables)
    EXPECT_EQ(table.rows, RowsOf(from)[table.name].size()) << table.name;
  EXPECT_THAT(copy.notCopied, IsEmpty());
  EXPECT_TRUE(copy.oneMoment);
}

TEST_F(CopyTest, BringsManyPartsOfATable) {
  const auto large = folder / "grande.sqlite";
  MakeSchoolFile(large, [](Connection& school) {
    SchoolGenerator(school).Build(5000, 3, [](std::size_t) {});
  });
  std::size_t last = 0;
  std::size_t whole = 0;
  CopySchool(SchoolAddress::File(large), SchoolAddress::File(to),
             {[&](std::size_t done, std::size_t all) {
                EXPECT_GE(done, last);
                last = done;
                whole = all;
              },
              [] { return false; }});
  EXPECT_EQ(last, whole);
  EXPECT_EQ(RowsOf(large), RowsOf(to));
}

TEST_F(CopyTest, NamesWhatItLeaves) {
  Change(from, "CREATE TABLE Recibo (A int); ALTER TABLE Alumno ADD COLUMN Telefono TEXT");
  const auto copy = CopySchool(SchoolAddress::File(from), SchoolAddress::File(to), kNobody);
  EXPECT_THAT(copy.notCopied, ElementsAre("Recibo", "Alumno.Telefono"));
}

TEST_F(CopyTest, FindsColumnsThatAreOnlyFilledByPlace) {
  Change(from,
         "ALTER TABLE Evaluacion RENAME COLUMN Faltas TO Ausencias; INSERT INTO Evaluacion "
         "VALUES (99000,1,1,1,1,1,1,1,1,1,1,1,1,1,1,77)");
  const auto copy = CopySchool(SchoolAddress::File(from), SchoolAddress::File(to), kNobody);
  EXPECT_THAT(copy.notCopied, IsEmpty());
  EXPECT_EQ(RowsOf(from)["Evaluacion"], RowsOf(to)["Evaluacion"]);
}

TEST_F(CopyTest, SeesOneMomentWhileOthersWrite) {
  const auto before = RowsOf(from);
  auto written = false;
  CopySchool(SchoolAddress::File(from), SchoolAddress::File(to),
             {[&](std::size_t, std::size_t) {
                if (!written) Change(from, "DELETE FROM EvaluacionActa; DELETE FROM Nota");
                written = true;
              },
              [] { return false; }});
  EXPECT_EQ(RowsOf(to), before);
  EXPECT_NE(RowsOf(from), before);
}

TEST_F(CopyTest, RefusesWhatIsNoSchoolAndWhatIsThere) {
  std::ofstream(to) << "de otro";
  EXPECT_EQ(Refusal(SchoolAddress::File(to)), "No se puede crear " + to + ": el archivo ya existe");
  Change(from, "DROP TABLE Nota");
  EXPECT_EQ(Refusal(SchoolAddress::File(folder / "otra.sqlite")),
            "No se puede copiar " + from + ": Falta la tabla Nota");
  EXPECT_EQ(folder.Files(), 2U);
}

TEST_F(CopyTest, LeavesNothingWhenARowHasNoPlace) {
  // A key that is no number can't stand in the copy.
  Change(from,
         "ALTER TABLE PublicacionPte RENAME TO Vieja; CREATE TABLE PublicacionPte "
         "(IDPublicacionPte TEXT, CodProfesor int, CodPropietario int, CodSeccion int, "
         "CodNumEvaluacion int); DROP TABLE Vieja;"
         "INSERT INTO PublicacionPte VALUES ('x',1,1,1,1)");
  EXPECT_EQ(Refusal(SchoolAddress::File(to)),
            "En la tabla PublicacionPte, la fila IDPublicacionPte=x tiene en IDPublicacionPte «x», "
            "que no es un número");
  Change(from,
         "UPDATE PublicacionPte SET IDPublicacionPte='1'; INSERT INTO PublicacionPte SELECT "
         "* FROM PublicacionPte");
  EXPECT_THAT(Refusal(SchoolAddress::File(to)),
              HasSubstr("Al escribir en la tabla PublicacionPte las filas de IDPublicacionPte=1 a "
                        "IDPublicacionPte=1: UNIQUE"));
  EXPECT_EQ(folder.Files(), 1U);
}

TEST_F(CopyTest, LeavesNothingWhenItIsGivenUp) {
  // At each of the places where it asks.
  for (auto patience = 0; patience < 400; patience += 7) {
    auto left = patience;
    try {
      CopySchool(SchoolAddress::File(from), SchoolAddress::File(to),
                 {[](std::size_t, std::size_t) {}, [&] { return left-- <= 0; }});
      EXPECT_GT(patience, 60);
      return;
    } catch (const WritingStopped&) {
      ASSERT_EQ(folder.Files(), 1U);
    }
  }
  FAIL() << "never got through";
}

std::string Literal(const Value& value, SchemaKind kind, Engine engine) {
  std::string text;
  try {
    AppendLiteral(text, value, kind, engine);
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  return text;
}

TEST(CellLiteral, IsPutAsTheEngineTakesIt) {
  EXPECT_EQ(Literal(Value(), SchemaKind::Long, Engine::PostgreSql), "NULL");
  EXPECT_EQ(Literal(Value(-1), SchemaKind::Flag, Engine::PostgreSql), "-1");
  EXPECT_EQ(Literal(Value(-1), SchemaKind::Flag, Engine::SqlServer), "1");
  EXPECT_EQ(Literal(Value("a'b\\"), SchemaKind::Text, Engine::PostgreSql), "'a''b\\'");
  EXPECT_EQ(Literal(Value("a\\\nb"), SchemaKind::Text, Engine::SqlServer), "N'a\\'+N'\nb'");
  EXPECT_EQ(Literal(Value(3.0), SchemaKind::Long, Engine::PostgreSql), "3");
  EXPECT_EQ(Literal(Value(0.5), SchemaKind::Long, Engine::Sqlite), "0.5");
  EXPECT_EQ(Literal(Value("abc"), SchemaKind::Long, Engine::Sqlite), "'abc'");
}

TEST(CellLiteral, IsRefusedWhereItHasNoPlace) {
  EXPECT_EQ(Literal(Value("2025/03/03 10:00"), SchemaKind::Date, Engine::PostgreSql),
            "un texto de 16 letras, y en el destino caben 10");
  EXPECT_EQ(Literal(Value(std::string(256, 'a')), SchemaKind::Text, Engine::SqlServer),
            "un texto de 256 letras, y en el destino caben 255");
  EXPECT_EQ(Literal(Value(40000), SchemaKind::Short, Engine::PostgreSql),
            "el número 40000, y en el destino caben los que van de -32768 a 32767");
  EXPECT_EQ(Literal(Value(-1), SchemaKind::Byte, Engine::SqlServer),
            "el número -1, y en el destino caben los que van de 0 a 255");
  EXPECT_EQ(Literal(Value(0.5), SchemaKind::Long, Engine::PostgreSql),
            "el número 0.5, que no es entero");
  EXPECT_EQ(Literal(Value("abc"), SchemaKind::Long, Engine::PostgreSql),
            "«abc», que no es un número");
  EXPECT_EQ(Literal(Value(), SchemaKind::Key, Engine::Sqlite), "el valor nulo, y es la clave");
  EXPECT_EQ(Literal(Value(std::string("a\0b", 3)), SchemaKind::Text, Engine::Sqlite),
            "un texto con el carácter de código 0");
}

Outcome Copiar(const std::string& arguments) {
  return RunCommand(QUORVANE_ESCUELA " copiar " + arguments);
}

TEST_F(CopyTest, TellsTheRowsByTable) {
  const auto copied = Copiar(from + " " + to);
  EXPECT_EQ(copied.status, 0);
  EXPECT_THAT(copied.text, HasSubstr("Copiada la escuela " + from + " en " + to + "\n"));
  EXPECT_THAT(copied.text, HasSubstr("\n  Usuario                         8\n"));
  EXPECT_EQ(Copiar(from + " " + to).status, 1);
  for (const std::string few : {"", "a", "a b c", "a b --odbc c"}) EXPECT_EQ(Copiar(few).status, 2);
  EXPECT_THAT(Copiar("a").text, HasSubstr("Falta DESTINO"));
}

TEST_F(CopyTest, GoesThroughADriverToo) {
  Change(from, kOdd);
  std::ofstream{to};
  const auto string = "'Driver=SQLite3;PWD=secreto;Database=" + to + "'";
  const auto copied = Copiar(from + " " + string);
  EXPECT_EQ(copied.status, 0) << copied.text;
  EXPECT_EQ(RowsOf(from), RowsOf(to));
  EXPECT_THAT(copied.text, Not(HasSubstr("secreto")));
  EXPECT_THAT(Copiar(from + " " + string).text, HasSubstr("ya tiene la tabla"));
  EXPECT_EQ(Copiar(string + " " + (folder / "vuelta.sqlite")).status, 0);
  EXPECT_EQ(RowsOf(from), RowsOf(folder / "vuelta.sqlite"));
}

/// Starts the program's copy, and signals it once it has `begun`; how it ended.
int EndedBy(int signal, const std::string& from, const std::string& to,
            const std::function<bool()>& begun) {
  const auto child = fork();
  if (child == 0) {
    const auto nothing = open("/dev/null", O_WRONLY);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
    execl(QUORVANE_ESCUELA, QUORVANE_ESCUELA, "copiar", from.c_str(), to.c_str(), nullptr);
    _exit(127);
  }
  for (auto i = 0; i < 2000 && !begun(); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  kill(child, signal);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

TEST_F(CopyTest, EndsByTheSignalAndLeavesNothing) {
  const auto large = folder / "grande.sqlite";
  MakeSchoolFile(large, [](Connection& school) {
    SchoolGenerator(school).Build(20000, 3, [](std::size_t) {});
  });
  const auto files = folder.Files();
  const auto writes = [&] {
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(to).parent_path()))
      if (std::error_code gone; file.path().string().find("parcial") != std::string::npos &&
                                file.file_size(gone) > 0 && !gone)
        return true;
    return false;
  };
  for (const auto signal : {SIGINT, SIGTERM, SIGHUP}) {
    EXPECT_EQ(EndedBy(signal, large, to, writes), signal);
    EXPECT_EQ(folder.Files(), files);
  }
}

// The indexes and the end come behind the last row.
TEST_F(CopyTest, CanBeGivenUpBehindTheRows) {
  auto all = false;
  EXPECT_THROW(CopySchool(SchoolAddress::File(from), SchoolAddress::File(to),
                          {[&](std::size_t done, std::size_t whole) { all = done == whole; },
                           [&] { return all && ++asked > 1; }}),
               WritingStopped);
  EXPECT_EQ(folder.Files(), 1U);
}

/// A database of its own on the tests' server.
class CopyOnServer : public CopyTest {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "no server";
    CopyTest::SetUp();
    static int number = 0;
    name = "copia_" + std::to_string(getpid()) + "_" + std::to_string(++number);
    Server("CREATE DATABASE " + name);
  }
  void TearDown() override {
    if (!name.empty()) Server("DROP DATABASE " + name);
  }
  static void Server(const std::string& statement) {
    odbc::OdbcConnection server(OwnerString("postgres"), "");
    server.Open();
    server.Execute(statement);
  }

  [[nodiscard]] SchoolAddress There() const { return SchoolAddress::Odbc(OwnerString(name)); }
  [[nodiscard]] Rows TablesThere() const {
    const auto school = There().Open("");
    return RowsOf(*school, "SELECT COUNT(*) FROM pg_tables WHERE schemaname='public'");
  }

  std::string name;
};

TEST_F(CopyOnServer, GoesThereAndBack) {
  Change(from, kOdd);
  CopySchool(SchoolAddress::File(from), There(), kNobody);
  CopySchool(There(), SchoolAddress::File(to), kNobody);
  EXPECT_EQ(RowsOf(from), RowsOf(to));
  EXPECT_THAT(Refusal(There()), HasSubstr("ya tiene la tabla"));
}

TEST_F(CopyOnServer, NamesWhatItLeaves) {
  CopySchool(SchoolAddress::File(from), There(), kNobody);
  There().Open("")->Execute("CREATE TABLE Recibo (A int)");
  const auto copy = CopySchool(There(), SchoolAddress::File(to), kNobody);
  EXPECT_THAT(copy.notCopied, ElementsAre("recibo"));
}

TEST_F(CopyOnServer, LeavesNothingWhenARowHasNoPlace) {
  Change(from, "UPDATE Alumno SET FechaBaja='tres de marzo' WHERE IDAlumno=1");
  EXPECT_THAT(Refusal(There()),
              HasSubstr("En la tabla Alumno, la fila IDAlumno=1 tiene en FechaBaja un texto de 13 "
                        "letras, y en el destino caben 10. No ha quedado nada escrito"));
  EXPECT_THAT(TablesThere(), ElementsAre("0|"));
}

TEST_F(CopyOnServer, SeesOneMomentWhileOthersWrite) {
  CopySchool(SchoolAddress::File(from), There(), kNobody);
  const auto other = There().Open("");
  auto written = false;
  CopySchool(There(), SchoolAddress::File(to),
             {[&](std::size_t, std::size_t) {
                if (!written) other->Execute("DELETE FROM EvaluacionActa; DELETE FROM Nota");
                written = true;
              },
              [] { return false; }});
  EXPECT_EQ(RowsOf(from), RowsOf(to));
}

TEST_F(CopyOnServer, ASecondSignalEndsItWhereItWaits) {
  CopySchool(SchoolAddress::File(from), There(), kNobody);
  const auto holder = There().Open("");
  holder->Execute("BEGIN");
  holder->Execute("LOCK TABLE Alumno");
  const auto child = fork();
  if (child == 0) {
    const auto nothing = open("/dev/null", O_WRONLY);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
    execl(QUORVANE_ESCUELA, QUORVANE_ESCUELA, "copiar", OwnerString(name).c_str(), to.c_str(),
          nullptr);
    _exit(127);
  }
  const auto waiting = [&] {
    return RowsOf(*holder, "SELECT COUNT(*) FROM pg_locks WHERE NOT granted") == Rows{"1|"};
  };
  for (auto i = 0; i < 2000 && !waiting(); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  kill(child, SIGINT);
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_EQ(waitpid(child, nullptr, WNOHANG), 0);
  kill(child, SIGINT);
  int status = 0;
  for (auto i = 0; i < 1000 && waitpid(child, &status, WNOHANG) == 0; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
  kill(child, SIGKILL);
  holder->Execute("ROLLBACK");
}

TEST_F(CopyOnServer, EndsByTheSignalAndLeavesNothing) {
  const auto large = folder / "grande.sqlite";
  MakeSchoolFile(large, [](Connection& school) {
    SchoolGenerator(school).Build(20000, 3, [](std::size_t) {});
  });
  odbc::OdbcConnection watcher(OwnerString("postgres"), "");
  watcher.Open();
  // Nobody sees the rows of a transaction that goes on; the server tells that there are some.
  const auto writes = [&] {
    return RowsOf(watcher,
                  "SELECT COUNT(*) FROM pg_stat_activity WHERE backend_xid IS NOT NULL AND "
                  "query LIKE '%INSERT INTO %' AND datname='" +
                      name + "'") == Rows{"1|"};
  };
  for (const auto signal : {SIGINT, SIGTERM}) {
    EXPECT_EQ(EndedBy(signal, large, OwnerString(name), writes), signal);
    EXPECT_THAT(TablesThere(), ElementsAre("0|"));
  }
}

TEST_F(CopyOnServer, LeavesNothingWhenItIsGivenUp) {
  for (const auto patience : {0, 1, 20, 60}) {
    auto left = patience;
    EXPECT_THROW(CopySchool(SchoolAddress::File(from), There(),
                            {[](std::size_t, std::size_t) {}, [&] { return left-- <= 0; }}),
                 WritingStopped);
    EXPECT_THAT(TablesThere(), ElementsAre("0|"));
  }
}

}  // namespace
}  // namespace quorvane::test
