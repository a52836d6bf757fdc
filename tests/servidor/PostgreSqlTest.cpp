// A real server of PostgreSQL, through its driver, beside the file adapter.

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqltext/Dialect.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolFile.h"
#include "frame/modGeneral.h"
#include "frame/schema/SchoolSchema.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/StatementError.h"
#include "tests/support/StatementList.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using odbc::OdbcConnection;

std::string ErrorOf(Connection& connection, const std::string& statement) {
  return StatementError([&] { connection.Execute(statement); });
}

class PostgreSqlTest : public testing::Test {
 protected:
  PostgreSqlTest() { teacher.Execute("SET client_min_messages TO error"); }
  ~PostgreSqlTest() override { GiveBackServerSchool(database_); }

  Connection& Owner() { return OwnersConnection(database_); }

  const std::string database_ = TakeServerSchool();
  Opened<OdbcConnection> teacher{ServerString(database_), ""};  ///< with the rights of who works
};

TEST_F(PostgreSqlTest, IsWhatTheDriverNames) {
  EXPECT_EQ(teacher.ReachedEngine(), sqltext::Engine::PostgreSql);
  EXPECT_EQ(teacher.DataSource(), "127.0.0.1");
}

TEST_F(PostgreSqlTest, ValuesOfEveryType) {
  const std::string select =
      "SELECT CAST(-32768 AS smallint) AS corto, CAST(-2147483648 AS integer) AS largo, "
      "CAST(9007199254740993 AS bigint) AS enorme, CAST(-12.34 AS numeric(8,2)) AS decimal, "
      "CAST(700 AS numeric) AS entero, CAST(2.5 AS double precision) AS real, "
      "(1=1) AS cierto, (1=0) AS falso, CAST('2026-03-01' AS date) AS fecha, "
      "CAST('2026-12-31 23:59:58' AS timestamp) AS momento, CAST('ab' AS char(5)) AS relleno, "
      "CAST('Ñúñez' AS varchar(20)) AS corta, CAST('Íñigo 😀' AS text) AS larga, "
      "CAST(NULL AS integer) AS nada";
  EXPECT_THAT(RunRows(teacher, select),
              ElementsAre("-32768|-2147483648|9007199254740993|-12.34|700|2.5|-1|0|2026/03/01|"
                          "2026/12/31|ab   |Ñúñez|Íñigo 😀|NULL"));
  const auto rows = teacher.Execute(select);
  EXPECT_THAT(rows.Names(),
              ElementsAre("corto", "largo", "enorme", "decimal", "entero", "real", "cierto",
                          "falso", "fecha", "momento", "relleno", "corta", "larga", "nada"));
  EXPECT_EQ(rows.Fields("LARGO").Long(), -2147483648);
  EXPECT_FALSE(rows.Fields("decimal").IsText());
}

TEST_F(PostgreSqlTest, TextsComeBackAsTheyWent) {
  std::string longest;
  for (auto i = 0; i < 30000; ++i) longest += "ñ😀";
  for (const auto& text :
       {std::string("O''Brien"), std::string("a\\b\\\\c"), std::string("1\n2\r\n3"),
        std::string("{fn now()} ? :a $1 [x] ||"), longest}) {
    auto rows = teacher.Execute("SELECT CAST('" + text + "' AS text) AS t");
    auto expected = text;
    if (const auto quotes = expected.find("''"); quotes != std::string::npos)
      expected.erase(quotes, 1);
    EXPECT_TRUE(rows.Fields(0).Text() == expected) << rows.Fields(0).Text().substr(0, 60);
  }
}

TEST_F(PostgreSqlTest, RowsWithoutAPartnerAreThoseOfAFile) {
  const auto orphans = [this] {
    return RunRows(teacher, "SELECT a FROM filas WHERE a NOT IN (SELECT b FROM otras)");
  };
  teacher.Execute("CREATE TEMP TABLE filas AS SELECT * FROM (VALUES (1),(2),(NULL)) AS v(a)");
  teacher.Execute("CREATE TEMP TABLE otras (b integer)");
  EXPECT_THAT(orphans(), ElementsAre("1", "2", "NULL"));
  teacher.Execute("INSERT INTO otras VALUES (2),(2),(3)");
  EXPECT_THAT(orphans(), ElementsAre("1"));
  teacher.Execute("INSERT INTO otras VALUES (NULL)");
  EXPECT_THAT(orphans(), IsEmpty());
}

// However little memory the server has for a step, an opening of the register must not go through
// a whole table for each row of another.
TEST_F(PostgreSqlTest, RowsWithoutAPartnerAreFoundByOneJoin) {
  auto plans = 0;
  for (const auto& listed : Catalogue(QUORVANE_STATEMENTS)) {
    if (listed.find("FROM Alumnopte_matdet WHERE cod") == std::string::npos ||
        listed.find("not in (SELECT") == std::string::npos)
      continue;
    auto plan = teacher.Execute("EXPLAIN " + sqltext::Put(listed, sqltext::Engine::PostgreSql));
    std::string text;
    for (; !plan.Eof(); plan.MoveNext()) text += plan.Fields(0).Text() + '\n';
    EXPECT_THAT(text, HasSubstr("Anti Join"));
    ++plans;
  }
  EXPECT_EQ(plans, 2);
}

TEST_F(PostgreSqlTest, FailureTellsStateAndTextAndLeavesTheConnection) {
  const std::vector<std::pair<std::string, std::string>> failures = {
      {"SELECT * FROM Nada", "[42P01] ERROR: relation \"nada\" does not exist"},
      {"SELECT Nada FROM Alumno", "[42703] ERROR: column"},
      {"INSERT INTO PublicacionPte VALUES (1,1,1,4,1)", "[23505] ERROR: duplicate key value"},
      // Who works may not write the school's own tables.
      {"DELETE FROM Alumno", "[42501] ERROR: permission denied for table alumno"},
      {"CREATE TABLE Otra (a integer)", "[42501] ERROR: permission denied for schema public"}};
  teacher.Execute("INSERT INTO PublicacionPte VALUES (1,1,1,4,1)");
  for (const auto& [statement, told] : failures)
    EXPECT_THAT(ErrorOf(teacher, statement), StartsWith(told)) << statement;
  EXPECT_TRUE(teacher.IsOpen());
  EXPECT_THAT(RunRows(teacher, "SELECT 7"), ElementsAre("7"));
}

TEST_F(PostgreSqlTest, RowsComeInTheOrderOfAFile) {
  teacher.Execute("INSERT INTO Profesor_Pte VALUES (2,1),(1,2),(NULL,3),(1,4)");
  teacher.Execute("UPDATE Profesor_Pte SET CodProfesor=1 WHERE CodMatDet=2");
  const std::string select = "SELECT CodMatDet, CodProfesor FROM Profesor_Pte";
  EXPECT_THAT(RunRows(teacher, select), ElementsAre("1|2", "2|1", "3|NULL", "4|1"));
  EXPECT_THAT(RunRows(teacher, select + " ORDER BY CodProfesor"),
              ElementsAre("3|NULL", "2|1", "4|1", "1|2"));
  EXPECT_THAT(RunRows(teacher, select + " ORDER BY CodProfesor DESC"),
              ElementsAre("1|2", "2|1", "4|1", "3|NULL"));
}

TEST_F(PostgreSqlTest, OfAComparedSelectTheFirstRowCounts) {
  teacher.Execute("INSERT INTO Profesor_Pte VALUES (1,2),(1,2)");
  EXPECT_THAT(RunRows(teacher,
                      "SELECT 7 FROM Profesor_Pte WHERE CodMatDet=(SELECT CodMatDet FROM "
                      "Profesor_Pte WHERE CodProfesor=1)"),
              ElementsAre("7", "7"));
}

TEST_F(PostgreSqlTest, ConnectionThatTheServerHasEndedIsTold) {
  const auto process = teacher.Execute("SELECT pg_backend_pid()").Fields(0).Text();
  Opened<OdbcConnection>(ServerString(database_), "")
      .Execute("SELECT pg_terminate_backend(" + process + ")");
  EXPECT_THAT(ErrorOf(teacher, "SELECT 1"),
              StartsWith("Se ha perdido la conexión con la base de datos: "));
  EXPECT_FALSE(teacher.IsOpen());
  teacher.Open();
  EXPECT_THAT(RunRows(teacher, "SELECT 1"), ElementsAre("1"));
}

/// The rows in an order of their own: where a statement asks for none, or leaves some equal, each
/// engine has another.
std::vector<std::string> InOrder(std::vector<std::string> rows) {
  std::sort(rows.begin(), rows.end());
  return rows;
}

/// Statements that no event reaches, for which who works needs no right.
std::set<std::string> Unreached() {
  std::set<std::string> lines;
  std::ifstream list(QUORVANE_STATEMENTS);
  for (std::string line; std::getline(list, line);)
    if (line.starts_with("~ ")) lines.insert(line.substr(2));
  return lines;
}

bool IsError(const std::vector<std::string>& rows) {
  return rows.size() == 1 && rows.front().starts_with("error ");
}

TEST_F(PostgreSqlTest, GivesTheRowsOfTheFileForEveryStatementOfTheModule) {
  const TempFolder folder;
  const auto path = folder / "fichero.sqlite";
  MakeSchoolFile(path, [](Connection& school) { DemoSchool(school).Build(); });
  DemoSchool(Owner()).Build();
  Opened<sqlite::SqliteConnection> file(path, "");
  auto compared = 0;
  auto failing = 0;
  const auto unreached = Unreached();
  for (const auto reading : {true, false})
    for (const auto number : {1, 2, 4, 5, 7, 11, 30})
      for (const auto& line : Catalogue(QUORVANE_STATEMENTS)) {
        const auto statement = FillIn(line, number);
        if (reading ? !IsSelect(statement) : unreached.contains(line)) continue;
        const auto expected = InOrder(RunRows(file, statement));
        const auto rows = InOrder(RunRows(teacher, statement));
        if (IsError(expected) || IsError(rows)) {
          // Each engine has its own words for a key that stands or a column that isn't there.
          EXPECT_EQ(IsError(rows), IsError(expected)) << statement << "\n"
                                                      << (IsError(rows) ? rows : expected).front();
          ++failing;
          continue;
        }
        ASSERT_EQ(rows, expected) << statement;
        compared += static_cast<int>(expected.size());
      }
  EXPECT_GT(compared, 1000);
  EXPECT_LT(failing, compared / 10);
}

TEST_F(PostgreSqlTest, SampleSchoolIsFitForTheModule) {
  DemoSchool(Owner()).Build();
  EXPECT_THAT(SchoolCheck(teacher).Structure(SchoolCheck::For::Host), IsEmpty());
  EXPECT_THAT(SchoolCheck(teacher).Rows(), IsEmpty());
}

const std::string kEnd =
    "sql \"SELECT pg_terminate_backend(pid,5000) FROM pg_stat_activity WHERE "
    "datname=current_database() AND usename=current_user AND pid<>pg_backend_pid()\"\n";

TEST(ReconnectTest, AScreenThatLostTheConnectionOpensAgain) {
  const SmallSchool school;
  const auto played = RunScript(school, "nodo 124\n" + kEnd +
                                            "elegir cboTipoEnsenanza =3\n"
                                            "nodo 124\nelegir cboTipoEnsenanza =3\n"
                                            "ver\ncerrar\n");
  EXPECT_THAT(
      played.Of("error"),
      ElementsAre(StartsWith("-2147467259 Se ha perdido la conexión con la base de datos: [")))
      << played.Text();
  EXPECT_THAT(played.Of("ver"), ElementsAre(HasSubstr("2º ESO"))) << played.Text();
}

TEST(ReconnectTest, AScreenAfterARestConnectsAgainByItself) {
  const SmallSchool school;
  const auto played = RunScript(school, "nodo 123\ncerrar\n" + kEnd + "nodo 123\ncerrar\n");
  EXPECT_THAT(played.Of("error"), IsEmpty()) << played.Text();
  EXPECT_EQ(played.Of("muestra").size(), 2U);
}

}  // namespace
}  // namespace quorvane::test
