#include <chrono>
#include <fstream>
#include <future>
#include <string>
#include <thread>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/RuntimeError.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"
#include "tests/support/StatementError.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using sqlite::OpenMode;
using sqlite::SqliteConnection;
using namespace std::chrono_literals;

std::string OpenError(SqliteConnection& connection) {
  const auto told = StatementError([&] { connection.Open(); });
  EXPECT_EQ(connection.IsOpen(), told == "no error");
  return told;
}

class SqliteConnectionTest : public testing::Test {
 protected:
  SqliteConnectionTest() {
    connection_.Open();
    connection_.Execute("CREATE TABLE T (A INTEGER PRIMARY KEY, B TEXT)");
  }

  std::vector<std::string> Rows(const std::string& statement) {
    return RunRows(connection_, statement);
  }

  void Write(const std::string& name, const std::string& content) const {
    std::ofstream(folder_ / name, std::ios::binary) << content;
  }

  TempFolder folder_;
  std::string path_ = folder_ / "a.sqlite";
  SqliteConnection connection_{path_, "", OpenMode::Create};
};

TEST_F(SqliteConnectionTest, ReadsWhatItWrote) {
  connection_.Execute("INSERT INTO T VALUES (1,'uno')");
  connection_.Execute("INSERT INTO T VALUES (2,NULL)");
  EXPECT_THAT(connection_.Execute("SELECT A, T.B FROM T ORDER BY A").Names(),
              ElementsAre("A", "B"));
  EXPECT_THAT(Rows("SELECT A, T.B FROM T ORDER BY A"), ElementsAre("1|uno", "2|NULL"));
}

TEST_F(SqliteConnectionTest, ARecordsetOutlivesLaterStatements) {
  connection_.Execute("INSERT INTO T VALUES (1,'uno')");
  auto first = connection_.Execute("SELECT B FROM T WHERE A=1");
  auto second = connection_.Execute("SELECT B FROM T WHERE A=2");
  connection_.Execute("DELETE FROM T WHERE A=1");
  EXPECT_EQ(first.Fields("B").Text(), "uno");
  EXPECT_TRUE(second.Eof());
  EXPECT_THAT(second.Names(), ElementsAre("B"));
}

TEST_F(SqliteConnectionTest, AStatementWithoutColumnsGivesAClosedRecordset) {
  EXPECT_FALSE(connection_.Execute("DELETE FROM T WHERE A=1").IsOpen());
  EXPECT_FALSE(connection_.Execute("  ").IsOpen());
}

TEST_F(SqliteConnectionTest, KeepsEveryKindOfValue) {
  connection_.Execute("INSERT INTO T VALUES (9007199254740993,'x')");
  EXPECT_THAT(Rows("SELECT A FROM T"), ElementsAre("9007199254740993"));
  EXPECT_THAT(Rows("SELECT A FROM T WHERE A=9007199254740993"), ElementsAre("9007199254740993"));
  EXPECT_THAT(Rows("SELECT -A, 1.5, 'ñ', X'C3B1', X'', NULL FROM T"),
              ElementsAre("-9007199254740993|1.5|ñ|ñ||NULL"));
  const auto big = connection_.Execute("SELECT 9223372036854775807 AS Grande");
  EXPECT_THROW((void)big.Fields("Grande").Long(), RuntimeError);
  // A number beyond 64 bits is a real, to the engine and so here.
  EXPECT_THAT(Rows("SELECT A FROM T WHERE A<9223372036854775808"), ElementsAre("9007199254740993"));
}

TEST_F(SqliteConnectionTest, BytesBehindAZeroAreKept) {
  EXPECT_THAT(Rows("SELECT X'410042' AS Bytes"), ElementsAre(std::string("A\0B", 3)));
}

TEST_F(SqliteConnectionTest, ANewColumnShowsInAStatementThatIsKept) {
  connection_.Execute("INSERT INTO T VALUES (1,'uno')");
  const auto before = connection_.Execute("SELECT * FROM T WHERE A=1");
  connection_.Execute("ALTER TABLE T ADD COLUMN C INTEGER DEFAULT 7");
  const auto after = connection_.Execute("SELECT * FROM T WHERE A=1");
  EXPECT_THAT(before.Names(), ElementsAre("A", "B"));
  EXPECT_THAT(after.Names(), ElementsAre("A", "B", "C"));
  EXPECT_EQ(after.Fields("C").Long(), 7);
}

TEST_F(SqliteConnectionTest, ARenamedColumnShowsInAStatementThatIsKept) {
  connection_.Execute("SELECT * FROM T WHERE A=1");
  Opened<SqliteConnection> other(path_, "");
  other.Execute("ALTER TABLE T RENAME COLUMN B TO Nombre");
  EXPECT_THAT(connection_.Execute("SELECT * FROM T WHERE A=1").Names(), ElementsAre("A", "Nombre"));
}

TEST_F(SqliteConnectionTest, ATableThatGoesAndComesBackIsSeen) {
  EXPECT_THAT(Rows("SELECT B FROM T WHERE A=1"), IsEmpty());
  connection_.Execute("DROP TABLE T");
  EXPECT_THAT(Rows("SELECT B FROM T WHERE A=1"), ElementsAre("error no such table: T"));
  connection_.Execute("CREATE TABLE T (A INTEGER, B INTEGER)");
  connection_.Execute("INSERT INTO T VALUES (1,5)");
  EXPECT_THAT(Rows("SELECT B FROM T WHERE A=1"), ElementsAre("5"));
}

TEST_F(SqliteConnectionTest, AColumnOfANestedJoinKeepsItsName) {
  connection_.Execute("CREATE TABLE U (A INTEGER, B TEXT)");
  const auto rows = connection_.Execute(
      "SELECT DISTINCT V.A, U.B FROM T AS V INNER JOIN (T INNER JOIN U ON T.A=U.A) ON V.A=T.A");
  EXPECT_THAT(rows.Names(), ElementsAre("A", "B"));
  EXPECT_THAT(connection_.Execute("SELECT A AS \"B:1\" FROM T").Names(), ElementsAre("B:1"));
}

TEST_F(SqliteConnectionTest, MoreShapesThanAreKept) {
  for (auto round = 0; round < 2; ++round)
    for (auto i = 0; i < 600; ++i) {
      const auto name = "c" + std::to_string(i);
      EXPECT_EQ(connection_.Execute("SELECT 1 AS " + name).Names().front(), name);
    }
}

TEST_F(SqliteConnectionTest, AStatementThatCannotBeLiftedRunsAsItIs) {
  connection_.Execute("INSERT INTO T VALUES (12,'x')");
  EXPECT_THAT(Rows("SELECT A FROM T WHERE A=1e-5 OR A=12"), ElementsAre("12"));
  EXPECT_THAT(Rows("SELECT A FROM T WHERE A=12 -- 5"), ElementsAre("12"));
  std::string list = "0";
  for (auto i = 1; i < 40000; ++i) list += "," + std::to_string(i);
  EXPECT_THAT(Rows("SELECT A FROM T WHERE A IN (" + list + ")"), ElementsAre("12"));
}

TEST_F(SqliteConnectionTest, FailuresBearTheEnginesOwnText) {
  for (auto round = 0; round < 2; ++round) {
    EXPECT_THAT(Rows("SELECT X FROM T WHERE A=1"), ElementsAre("error no such column: X"));
    EXPECT_THAT(Rows("DELETE FROM Nada WHERE A=1"), ElementsAre("error no such table: Nada"));
    EXPECT_THAT(Rows("SELECT A FROM T WHERE A=1 AND 2 3"),
                ElementsAre("error near \"3\": syntax error"));
  }
  connection_.Execute("INSERT INTO T VALUES (1,'x')");
  EXPECT_THAT(Rows("INSERT INTO T VALUES (1,'x')"),
              ElementsAre("error UNIQUE constraint failed: T.A"));
  EXPECT_EQ(StatementError([&] { connection_.Execute("INSERT INTO T VALUES (1,2,3)"); }),
            "table T has 2 columns but 3 values were supplied");
  EXPECT_THAT(Rows("SELECT COUNT(*) FROM T"), ElementsAre("1"));
}

TEST_F(SqliteConnectionTest, TakesOneStatementAtATime) {
  EXPECT_THAT(Rows("INSERT INTO T VALUES (1,'a'); INSERT INTO T VALUES (2,'b')"),
              ElementsAre("error Solo se admite una sentencia cada vez"));
  EXPECT_THAT(Rows("SELECT COUNT(*) FROM T"), ElementsAre("0"));
  connection_.ExecuteScript("INSERT INTO T VALUES (1,'a'); INSERT INTO T VALUES (2,'b');");
  EXPECT_THAT(Rows("SELECT COUNT(*) FROM T;"), ElementsAre("2"));
}

TEST_F(SqliteConnectionTest, OpensAndClosesAgainAndAgain) {
  EXPECT_EQ(connection_.DataSource(), path_);
  connection_.Open();
  EXPECT_TRUE(connection_.IsOpen());
  connection_.Execute("SELECT A FROM T WHERE A=1");
  connection_.Close();
  connection_.Close();
  EXPECT_FALSE(connection_.IsOpen());
  EXPECT_THROW(connection_.Execute("SELECT A FROM T"), RuntimeError);
  EXPECT_THROW(connection_.ExecuteScript("SELECT A FROM T"), RuntimeError);
  connection_.Open();
  EXPECT_THAT(Rows("SELECT A FROM T WHERE A=1"), IsEmpty());
}

TEST_F(SqliteConnectionTest, AnOpenedOneAgainKeepsWhatItHas) {
  connection_.Execute("CREATE TEMP TABLE Propia (A INTEGER)");
  connection_.Open();
  EXPECT_THAT(Rows("SELECT A FROM Propia"), IsEmpty());
}

TEST_F(SqliteConnectionTest, TellsWhyAFileCannotBeOpened) {
  const auto told = [this](const std::string& name) {
    SqliteConnection connection(folder_ / name, "");
    return OpenError(connection);
  };
  EXPECT_EQ(told("falta.sqlite"), "No se puede abrir la base de datos " +
                                      (folder_ / "falta.sqlite") + ": el archivo no existe");
  EXPECT_EQ(folder_.Files(), 1U);
  Write("vacio.sqlite", "");
  Write("ajeno.sqlite", std::string(5000, 'x'));
  Write("corto.sqlite", "hola");
  Write("roto.sqlite", Content(path_).replace(100, 400, std::string(400, 'x')));
  EXPECT_THAT(told("vacio.sqlite"), HasSubstr("el archivo está vacío"));
  EXPECT_THAT(told("ajeno.sqlite"), HasSubstr("file is not a database"));
  EXPECT_THAT(told("corto.sqlite"), HasSubstr("file is not a database"));
  EXPECT_THAT(told("roto.sqlite"), HasSubstr("database disk image is malformed"));
  EXPECT_THAT(told(""), HasSubstr("es una carpeta"));
}

TEST_F(SqliteConnectionTest, AMissingFileThatComesLaterOpens) {
  SqliteConnection late(folder_ / "tarde.sqlite", "");
  EXPECT_NE(OpenError(late), "no error");
  Opened<SqliteConnection> maker(folder_ / "tarde.sqlite", "", OpenMode::Create);
  maker.Execute("CREATE TABLE T (A INTEGER)");
  EXPECT_EQ(OpenError(late), "no error");
}

TEST_F(SqliteConnectionTest, ReadOnlyReadsOnly) {
  Opened<SqliteConnection> reader(path_, "", OpenMode::ReadOnly);
  EXPECT_THAT(RunRows(reader, "SELECT A FROM T"), IsEmpty());
  EXPECT_THAT(RunRows(reader, "INSERT INTO T VALUES (1,'x')"),
              ElementsAre(StartsWith("error attempt to write a readonly database")));
}

TEST_F(SqliteConnectionTest, ReadingLeavesNothingBesideAFileWithALog) {
  Opened<SqliteConnection>(path_, "").Execute("PRAGMA journal_mode=WAL");
  EXPECT_TRUE(
      Opened<SqliteConnection>(path_, "", OpenMode::ReadOnly).Execute("SELECT A FROM T").Eof());
  EXPECT_EQ(folder_.Files(), 1U);
}

TEST_F(SqliteConnectionTest, WaitsForAnotherConnectionsWrite) {
  Opened<SqliteConnection> other(path_, "");
  other.Execute("BEGIN EXCLUSIVE");
  other.Execute("INSERT INTO T VALUES (1,'otro')");
  auto waiting = std::async(std::launch::async, [this] {
    connection_.Execute("INSERT INTO T VALUES (2,'propio')");
    return Rows("SELECT A FROM T ORDER BY A");
  });
  EXPECT_EQ(waiting.wait_for(150ms), std::future_status::timeout);
  other.Execute("COMMIT");
  EXPECT_THAT(waiting.get(), ElementsAre("1", "2"));
}

TEST_F(SqliteConnectionTest, ManyWritersLoseNothing) {
  const auto write = [this](int from) {
    Opened<SqliteConnection> writer(path_, "");
    for (auto i = from; i < from + 25; ++i)
      writer.Execute("INSERT INTO T VALUES (" + std::to_string(i) + ",'x')");
  };
  std::vector<std::thread> threads;
  for (const auto from : {0, 100, 200, 300}) threads.emplace_back(write, from);
  for (auto& thread : threads) thread.join();
  EXPECT_THAT(Rows("SELECT COUNT(*) FROM T"), ElementsAre("100"));
}

TEST_F(SqliteConnectionTest, GivesUpWhenTheWaitIsOver) {
  Opened<SqliteConnection> other(path_, "");
  other.Execute("BEGIN EXCLUSIVE");
  SqliteConnection hasty(path_, "");
  hasty.BusyWait(30ms);
  EXPECT_THAT(OpenError(hasty), HasSubstr("database is locked"));
  other.Execute("COMMIT");
  hasty.Open();
  other.Execute("BEGIN EXCLUSIVE");
  EXPECT_THAT(RunRows(hasty, "INSERT INTO T VALUES (1,'x')"),
              ElementsAre("error database is locked"));
  other.Execute("COMMIT");
  EXPECT_THAT(RunRows(hasty, "INSERT INTO T VALUES (1,'x')"), IsEmpty());
}

TEST_F(SqliteConnectionTest, LeavesTheJournalModeAndWritesForGood) {
  {
    Opened<SqliteConnection> first(path_, "");
    EXPECT_THAT(RunRows(first, "PRAGMA journal_mode"), ElementsAre("delete"));
    EXPECT_THAT(RunRows(first, "PRAGMA synchronous"), ElementsAre("2"));
    EXPECT_THAT(RunRows(first, "PRAGMA journal_mode=WAL"), ElementsAre("wal"));
  }
  Opened<SqliteConnection> second(path_, "");
  EXPECT_THAT(RunRows(second, "PRAGMA journal_mode"), ElementsAre("wal"));
  EXPECT_THAT(RunRows(second, "PRAGMA synchronous"), ElementsAre("2"));
}

TEST_F(SqliteConnectionTest, JoinsTextsAndKeepsTheSum) {
  connection_.Execute("INSERT INTO T VALUES (3,'  Gil')");
  EXPECT_THAT(Rows("SELECT Ltrim(Rtrim(B + ' ' + 'Paz')) + ', ' + B AS N, A + 4 FROM T WHERE A=3"),
              ElementsAre("Gil Paz,   Gil|7"));
}

TEST_F(SqliteConnectionTest, AStatementWithANulIsRefusedWhole) {
  connection_.Execute("INSERT INTO T VALUES (1,'a')");
  const std::string statement("DELETE FROM T\0 WHERE A=2", 25);
  for (const auto& one : {statement, statement.substr(0, 14)}) {
    EXPECT_THROW(connection_.Execute(one), RuntimeError);
    EXPECT_THROW(connection_.ExecuteScript(one), RuntimeError);
  }
  EXPECT_THAT(RunRows(connection_, "SELECT A FROM T"), ElementsAre("1"));
}

}  // namespace
}  // namespace quorvane::test
