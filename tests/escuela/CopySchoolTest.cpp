// Schools copied between files and servers, by the program's own road.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sys/wait.h>
#include <thread>
#include <utility>

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
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using sqltext::Engine;

using Rows = std::vector<std::string>;

const CopyWatch kNobody = {[](std::size_t, std::size_t) {}, [] { return false; }};

/// Does that as soon as something is copied.
CopyWatch Once(const std::function<void()>& work) {
  return {[work, done = false](std::size_t, std::size_t) mutable {
            if (!std::exchange(done, true)) work();
          },
          kNobody.stop};
}

/// Gives it up when it has been asked so often.
CopyWatch WithPatience(int patience) {
  return {kNobody.progress, [patience]() mutable { return patience-- <= 0; }};
}

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
  Opened<sqlite::SqliteConnection> school(path, "");
  std::map<std::string, Rows> content;
  for (const auto& table : SchoolTables())
    content[table.name] = RowsOf(school, "SELECT * FROM " + table.name + " ORDER BY rowid");
  return content;
}

void Change(const std::string& path, const std::string& statements) {
  Opened<sqlite::SqliteConnection>(path, "").ExecuteScript(statements);
}

const auto* const kOdd =
    "INSERT INTO Alumno VALUES (900001,'O''Donnell \\ \"x\" [y] ? {z} :a $1 -- /*','uno\ndos\r\n\t',"
    "'ñÑ€ 漢字 😀\\\n',-5,NULL,-1,NULL);"
    "INSERT INTO Alumno VALUES (-3,'','\\','''',0,0,0,'2025/03/03');"
    "INSERT INTO Profesor_Pte VALUES (7,8),(7,8),(NULL,9),(7,8);"
    "INSERT INTO BloqueoPte VALUES (1,2,3,4,5),(1,2,3,4,5);";

/// Waits for that, but not for ever.
void Await(const std::function<bool()>& come) {
  for (auto i = 0; i < 2000 && !come(); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

/// Starts the program's copy, and signals it once it has `begun`; how it ended.
int EndedBy(int signal, const std::string& from, const std::string& to,
            const std::function<bool()>& begun) {
  const auto child = StartQuietly({QUORVANE_ESCUELA, "copiar", from, to});
  Await(begun);
  kill(child, signal);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

class CopyTest : public testing::Test {
 protected:
  void SetUp() override {
    MakeSchoolFile(from, [](Connection& school) { DemoSchool(school).Build(); });
  }

  SchoolCopy Copy(const CopyWatch& watch = kNobody) const { return Copy(there, watch); }
  SchoolCopy Copy(const SchoolAddress& destination, const CopyWatch& watch = kNobody) const {
    return CopySchool(SchoolAddress::File(from), destination, watch);
  }
  std::string Refusal(const SchoolAddress& destination) const {
    try {
      Copy(destination);
    } catch (const RuntimeError& error) {
      return error.Description();
    }
    return {};
  }
  /// In the sample's place.
  void Generate(int students) {
    from = folder / "grande.sqlite";
    MakeSchoolFile(from, [students](Connection& school) {
      SchoolGenerator(school).Build(students, 3, [](std::size_t) {});
    });
  }

  TempFolder folder;
  std::string from = folder / "origen.sqlite";
  std::string to = folder / "copia.sqlite";
  SchoolAddress there = SchoolAddress::File(to);
};

TEST_F(CopyTest, BringsAllRowsAsTheyWere) {
  Change(from, kOdd);
  const auto copy = Copy();
  EXPECT_EQ(RowsOf(from), RowsOf(to));
  EXPECT_THAT(RowsOf(to)["Profesor_Pte"], Contains("7|8|").Times(3));
  EXPECT_EQ(copy.tables.size(), SchoolTables().size());
  for (const auto& table : copy.tables)
    EXPECT_EQ(table.rows, RowsOf(from)[table.name].size()) << table.name;
  EXPECT_THAT(copy.notCopied, IsEmpty());
  EXPECT_TRUE(copy.oneMoment);
}

TEST_F(CopyTest, BringsManyPartsOfATable) {
  Generate(5000);
  std::size_t last = 0;
  std::size_t whole = 0;
  Copy({[&](std::size_t done, std::size_t all) {
          EXPECT_GE(done, last);
          last = done;
          whole = all;
        },
        kNobody.stop});
  EXPECT_EQ(last, whole);
  EXPECT_EQ(RowsOf(from), RowsOf(to));
}

TEST_F(CopyTest, NamesWhatItLeaves) {
  Change(from, "CREATE TABLE Recibo (A int); ALTER TABLE Alumno ADD COLUMN Telefono TEXT");
  EXPECT_THAT(Copy().notCopied, ElementsAre("Recibo", "Alumno.Telefono"));
}

TEST_F(CopyTest, FindsColumnsThatAreOnlyFilledByPlace) {
  Change(from,
         "ALTER TABLE Evaluacion RENAME COLUMN Faltas TO Ausencias; INSERT INTO Evaluacion "
         "VALUES (99000,1,1,1,1,1,1,1,1,1,1,1,1,1,1,77)");
  EXPECT_THAT(Copy().notCopied, IsEmpty());
  EXPECT_EQ(RowsOf(from)["Evaluacion"], RowsOf(to)["Evaluacion"]);
}

TEST_F(CopyTest, SeesOneMomentWhileOthersWrite) {
  const auto before = RowsOf(from);
  Copy(Once([this] { Change(from, "DELETE FROM EvaluacionActa; DELETE FROM Nota"); }));
  EXPECT_EQ(RowsOf(to), before);
  EXPECT_NE(RowsOf(from), before);
}

TEST_F(CopyTest, RefusesWhatIsNoSchoolAndWhatIsThere) {
  std::ofstream(to) << "de otro";
  EXPECT_EQ(Refusal(there), "No se puede crear " + to + ": el archivo ya existe");
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
  EXPECT_EQ(Refusal(there),
            "En la tabla PublicacionPte, la fila IDPublicacionPte=x tiene en IDPublicacionPte «x», "
            "que no es un número");
  Change(from,
         "UPDATE PublicacionPte SET IDPublicacionPte='1'; INSERT INTO PublicacionPte SELECT "
         "* FROM PublicacionPte");
  EXPECT_THAT(Refusal(there),
              HasSubstr("Al escribir en la tabla PublicacionPte las filas de IDPublicacionPte=1 a "
                        "IDPublicacionPte=1: UNIQUE"));
  EXPECT_EQ(folder.Files(), 1U);
}

TEST_F(CopyTest, LeavesNothingWhenItIsGivenUp) {
  // At each of the places where it asks.
  for (auto patience = 0; patience < 400; patience += 7) {
    try {
      Copy(WithPatience(patience));
      EXPECT_GT(patience, 60);
      return;
    } catch (const WritingStopped&) {
      ASSERT_EQ(folder.Files(), 1U);
    }
  }
  FAIL() << "never got through";
}

// The indexes and the end come behind the last row.
TEST_F(CopyTest, CanBeGivenUpBehindTheRows) {
  auto all = false;
  auto asked = 0;
  EXPECT_THROW(Copy({[&](std::size_t done, std::size_t whole) { all = done == whole; },
                     [&] { return all && ++asked > 1; }}),
               WritingStopped);
  EXPECT_EQ(folder.Files(), 1U);
}

TEST_F(CopyTest, TellsTheRowsByTable) {
  const auto order = "copiar " + from + " " + to;
  EXPECT_THAT(Escuela(order),
              FieldsAre(0, AllOf(HasSubstr("Copiada la escuela " + from + " en " + to + "\n"),
                                 HasSubstr("\n  Usuario                         8\n"))));
  EXPECT_EQ(Escuela(order).status, 1);
  for (const std::string few : {"", "a", "a b c", "a b --odbc c"})
    EXPECT_EQ(Escuela("copiar " + few).status, 2);
  EXPECT_THAT(Escuela("copiar a").text, HasSubstr("Falta DESTINO"));
}

TEST_F(CopyTest, GoesThroughADriverToo) {
  Change(from, kOdd);
  std::ofstream{to};
  const auto string = "'Driver=SQLite3;PWD=secreto;Database=" + to + "'";
  EXPECT_THAT(Escuela("copiar " + from + " " + string), FieldsAre(0, Not(HasSubstr("secreto"))));
  EXPECT_EQ(RowsOf(from), RowsOf(to));
  EXPECT_THAT(Escuela("copiar " + from + " " + string).text, HasSubstr("ya tiene la tabla"));
  EXPECT_EQ(Escuela("copiar " + string + " " + (folder / "vuelta.sqlite")).status, 0);
  EXPECT_EQ(RowsOf(from), RowsOf(folder / "vuelta.sqlite"));
}

TEST_F(CopyTest, EndsByTheSignalAndLeavesNothing) {
  Generate(20000);
  const auto files = folder.Files();
  const auto writes = [&] {
    for (const auto& file : std::filesystem::directory_iterator(folder / ""))
      if (std::error_code gone; file.path().string().find("parcial") != std::string::npos &&
                                file.file_size(gone) > 0 && !gone)
        return true;
    return false;
  };
  for (const auto signal : {SIGINT, SIGTERM, SIGHUP}) {
    EXPECT_EQ(EndedBy(signal, from, to, writes), signal);
    EXPECT_EQ(folder.Files(), files);
  }
}

/// As it is put into a statement, or why it isn't.
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

/// To a database of its own on the tests' server.
class CopyOnServer : public CopyTest {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "no server";
    CopyTest::SetUp();
    static int number = 0;
    name = "copia_" + std::to_string(getpid()) + "_" + std::to_string(++number);
    server.Open();
    server.Execute("CREATE DATABASE " + name);
    there = SchoolAddress::Odbc(OwnerString(name));
  }
  void TearDown() override {
    if (!name.empty()) server.Execute("DROP DATABASE " + name);
  }

  void CopyBack() const { CopySchool(there, SchoolAddress::File(to), kNobody); }
  /// That nothing has been made there.
  void ExpectNoTable() const {
    EXPECT_THAT(RowsOf(*there.Open(""), "SELECT * FROM pg_tables WHERE schemaname='public'"),
                IsEmpty());
  }
  bool IsOne(const std::string& rows) {
    return RowsOf(server, "SELECT COUNT(*) FROM " + rows) == Rows{"1|"};
  }

  std::string name;
  odbc::OdbcConnection server{OwnerString("postgres"), ""};
};

TEST_F(CopyOnServer, GoesThereAndBack) {
  Change(from, kOdd);
  Copy();
  CopyBack();
  EXPECT_EQ(RowsOf(from), RowsOf(to));
  EXPECT_THAT(Refusal(there), HasSubstr("ya tiene la tabla"));
}

TEST_F(CopyOnServer, NamesWhatItLeaves) {
  Copy();
  there.Open("")->Execute("CREATE TABLE Recibo (A int)");
  const auto copy = CopySchool(there, SchoolAddress::File(to), kNobody);
  EXPECT_THAT(copy.notCopied, ElementsAre("recibo"));
}

TEST_F(CopyOnServer, LeavesNothingWhenARowHasNoPlace) {
  Change(from, "UPDATE Alumno SET FechaBaja='tres de marzo' WHERE IDAlumno=1");
  EXPECT_THAT(Refusal(there),
              HasSubstr("En la tabla Alumno, la fila IDAlumno=1 tiene en FechaBaja un texto de 13 "
                        "letras, y en el destino caben 10. No ha quedado nada escrito"));
  ExpectNoTable();
}

TEST_F(CopyOnServer, SeesOneMomentWhileOthersWrite) {
  Copy();
  const auto other = there.Open("");
  CopySchool(there, SchoolAddress::File(to),
             Once([&] { other->Execute("DELETE FROM EvaluacionActa; DELETE FROM Nota"); }));
  EXPECT_EQ(RowsOf(from), RowsOf(to));
}

TEST_F(CopyOnServer, ASecondSignalEndsItWhereItWaits) {
  Copy();
  const auto holder = there.Open("");
  holder->Execute("BEGIN");
  holder->Execute("LOCK TABLE Alumno");
  const auto child = StartQuietly({QUORVANE_ESCUELA, "copiar", OwnerString(name), to});
  Await([this] { return IsOne("pg_locks WHERE NOT granted"); });
  kill(child, SIGINT);
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_EQ(waitpid(child, nullptr, WNOHANG), 0);
  kill(child, SIGINT);
  int status = 0;
  Await([&] { return waitpid(child, &status, WNOHANG) != 0; });
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT);
  kill(child, SIGKILL);
  holder->Execute("ROLLBACK");
}

TEST_F(CopyOnServer, EndsByTheSignalAndLeavesNothing) {
  Generate(20000);
  // Nobody sees the rows of a transaction that goes on; the server tells that there are some.
  const auto writes = [this] {
    return IsOne(
        "pg_stat_activity WHERE backend_xid IS NOT NULL AND query LIKE '%INSERT INTO %' "
        "AND datname='" +
        name + "'");
  };
  for (const auto signal : {SIGINT, SIGTERM}) {
    EXPECT_EQ(EndedBy(signal, from, OwnerString(name), writes), signal);
    ExpectNoTable();
  }
}

TEST_F(CopyOnServer, LeavesNothingWhenItIsGivenUp) {
  for (const auto patience : {0, 1, 20, 60}) {
    EXPECT_THROW(Copy(WithPatience(patience)), WritingStopped);
    ExpectNoTable();
  }
}

}  // namespace
}  // namespace quorvane::test
