// FreeTDS's driver against a server of SQL Server's protocol.

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqltext/UnionOrder.h"
#include "apps/escuela/CopySchool.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/quorvane-guion/PlayScript.h"
#include "frame/modGeneral.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/odbc/TdsServer.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"
#include "tests/support/StatementError.h"

namespace quorvane::test {
namespace {

using odbc::OdbcConnection;

using Lines = std::vector<std::string>;

void Demo(Connection& school) { DemoSchool(school).Build(); }

class SqlServerTest : public testing::Test {
 protected:
  TdsServer server;
  OdbcConnection con{server.String(), ""};
};

TEST_F(SqlServerTest, IsWhatTheDriverNames) {
  con.Open();
  EXPECT_EQ(con.ReachedEngine(), sqltext::Engine::SqlServer);
  EXPECT_EQ(con.DataSource(), "127.0.0.1");
}

TEST_F(SqlServerTest, ValuesOfEveryType) {
  con.Open();
  auto rows = con.Execute("EXEC tipos");
  EXPECT_EQ(rows.RecordCount(), 3U);
  EXPECT_EQ(rows.Fields("tinyint").Byte(), 255);
  EXPECT_EQ(rows.Fields("smallint").Integer(), -32768);
  EXPECT_EQ(rows.Fields("int").Long(), -2147483648);
  EXPECT_EQ(rows.Fields("bigint").Text(), "9007199254740993");
  EXPECT_EQ(rows.Fields("bit").Long(), -1);
  EXPECT_EQ(rows.Fields("float").Number(), 2.5);
  EXPECT_EQ(rows.Fields("real").Number(), 0.5);
  EXPECT_EQ(rows.Fields("decimal").Number(), -12.34);
  EXPECT_FALSE(rows.Fields("decimal").IsText());
  EXPECT_EQ(rows.Fields("datetime").Text(), "2026/03/01");
  EXPECT_EQ(rows.Fields("date").Text(), "2026/12/31");
  EXPECT_EQ(rows.Fields("nvarchar").Text(), "Íñigo 😀");
  EXPECT_EQ(rows.Fields("varchar").Text(), "Ñúñez");
  EXPECT_EQ(rows.Fields("guid").Text(), "03020100-0504-0706-0809-0A0B0C0D0E0F");
  std::string whole;
  for (auto i = 0; i < 30000; ++i) whole += "ñ😀";
  EXPECT_TRUE(rows.Fields("nvarchar(max)").Text() == whole);
  rows.MoveNext();
  for (std::size_t i = 0; i < rows.Names().size(); ++i)
    EXPECT_TRUE(rows.Fields(i).IsNull()) << rows.Names()[i];
  rows.MoveNext();
  EXPECT_EQ(rows.Fields("decimal").Long(), 700);
}

TEST_F(SqlServerTest, ATextReachesItUnchanged) {
  con.Open();
  std::string longest = "SELECT '";
  for (auto i = 0; i < 20000; ++i) longest += "ñ€";
  const Lines statements = {"SELECT 'Íñigo Ñúñez çÇ·l àèìòù ÁÉÍÓÚ üÜ ¿¡ ºª €'",
                            "SELECT 'Ωμέγα Дмитрий שלום 你好 😀🇪🇸'",
                            "SELECT Ltrim(Rtrim('a' + ' ' + 'b')) + ', ' + 'c'",
                            "SELECT '{fn now()} {ts ''2026''} {call x} ? :a @b ;' -- {d ?}",
                            "SELECT\t1 ,\r\n  2   ",
                            "SELECT 1 AS [a { } ? b]",
                            longest + "'"};
  for (const auto& statement : statements) con.Execute(statement);
  EXPECT_EQ(server.Batches(), statements);
  EXPECT_THAT(RunRows(con, statements[1]), ElementsAre("Ωμέγα Дмитрий שלום 你好 😀🇪🇸"));
}

TEST_F(SqlServerTest, OfSeveralPartsTheFirstRowsCountAndTheLastFailureTells) {
  con.Open();
  EXPECT_THAT(RunRows(con, "EXEC partes"), ElementsAre("7"));
  EXPECT_EQ(StatementError([&] { con.Execute("EXEC falla"); }),
            "[23000] La parte última falló, señor (547)");
  EXPECT_TRUE(con.IsOpen());
  EXPECT_THAT(RunRows(con, "EXEC partes"), ElementsAre("7"));
}

TEST_F(SqlServerTest, AFailureTellsStateTextAndNumber) {
  con.Open();
  EXPECT_EQ(StatementError([&] { con.Execute("SELECT * FROM Nada"); }),
            "[42S02] Invalid object name 'Nada'. (208)");
  EXPECT_THAT(StatementError([&] { con.Execute("SELEC"); }), StartsWith("[42000] "));
  con.Execute("CREATE TABLE K (k int NOT NULL PRIMARY KEY)");
  EXPECT_FALSE(con.Execute("INSERT INTO K VALUES (1)").IsOpen());
  EXPECT_THAT(StatementError([&] { con.Execute("INSERT INTO K VALUES (1)"); }),
              AllOf(StartsWith("[23000] "), HasSubstr("(2627)")));
}

TEST(OtherServerTest, IsRefusedWithWhatIsSupported) {
  const TdsServer other("", "Adaptive Server Enterprise");
  OdbcConnection con(other.String(), "");
  EXPECT_EQ(StatementError([&] { con.Open(); }),
            "No se puede usar esta base de datos: es de «Adaptive Server Enterprise», y solo se "
            "admiten PostgreSQL, desde la versión 12, SQL Server y SQLite");
  EXPECT_FALSE(con.IsOpen());
  EXPECT_THAT(StatementError([&] { con.Open(); }), HasSubstr("Adaptive Server"));
}

TEST_F(SqlServerTest, AWrongPasswordIsToldWithoutIt) {
  OdbcConnection other(server.String("equivocada"), "");
  EXPECT_THAT(
      StatementError([&] { other.Open(); }),
      AllOf(HasSubstr("Login failed for user 'zendria'. (18456)"),
            HasSubstr("Compruebe el usuario y la contraseña"), Not(HasSubstr("equivocada"))));
  EXPECT_FALSE(other.IsOpen());
}

TEST_F(SqlServerTest, ALostConnectionIsToldAndClosed) {
  con.Open();
  con.Execute("SELECT 1");
  server.Kill();
  EXPECT_THAT(StatementError([&] { con.Execute("SELECT 2"); }),
              StartsWith("Se ha perdido la conexión con la base de datos: ["));
  EXPECT_FALSE(con.IsOpen());
  try {
    con.Execute("SELECT 3");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::ObjectClosed));
  }
  EXPECT_THAT(StatementError([&] { con.Open(); }), StartsWith("No se puede conectar"));
}

TEST_F(SqlServerTest, TakesASchoolAndKeepsIt) {
  const auto address = SchoolAddress::Odbc(server.String());
  MakeSchool(address, Demo);
  EXPECT_THAT(server.Batches(), Contains(HasSubstr(",N'Óscar',")));
  const auto school = address.Open("");
  EXPECT_THAT(SchoolCheck(*school).Structure(SchoolCheck::For::Host), IsEmpty());
  EXPECT_THAT(SchoolCheck(*school).Rows(), IsEmpty());
  EXPECT_EQ(LockList(*school).Read().size(), 1U);
  EXPECT_TRUE(LockList(*school).Remove(1));
  EXPECT_THAT(LockList(*school).Read(), IsEmpty());
  EXPECT_THAT(StatementError([&] { MakeSchool(address, Demo); }), HasSubstr("ya tiene la tabla"));
}

TEST_F(SqlServerTest, IsLeftEmptyByASchoolThatFails) {
  const auto address = SchoolAddress::Odbc(server.String());
  EXPECT_THAT(StatementError([&] {
                MakeSchool(address, [](Connection& school) {
                  school.Execute("INSERT INTO Profesor_Pte VALUES (1,1)");
                  school.Execute("INSERT INTO Nada VALUES (1)");
                });
              }),
              HasSubstr("No ha quedado nada escrito"));
  EXPECT_THAT(StatementError([&] {
                MakeSchool(address, [this](Connection& school) {
                  server.Kill();
                  school.Execute("INSERT INTO Profesor_Pte VALUES (1,1)");
                });
              }),
              AllOf(HasSubstr("Se ha perdido la conexión"), Not(HasSubstr("secreto"))));
  Opened<sqlite::SqliteConnection> file(server.File(), "", sqlite::OpenMode::Create);
  EXPECT_THAT(RunRows(file, "SELECT name FROM sqlite_master"), IsEmpty());
}

/// What a script prints, a line an event.
Lines Play(const guion::PlayOptions& options, const std::string& script, int& status) {
  gblnMostrarAnchoNotas = false;
  std::istringstream commands(script);
  std::ostringstream out;
  std::ostringstream errors;
  status = guion::PlayScript(options, commands, out, errors);
  EXPECT_EQ(errors.str(), "");
  Lines lines;
  std::istringstream printed(out.str());
  for (std::string line; std::getline(printed, line);) lines.push_back(line);
  return lines;
}

guion::PlayOptions On(const TdsServer& server) {
  guion::PlayOptions options;
  options.odbc = server.String();
  options.host.usuario = 1;
  options.host.centro = 1;
  return options;
}

std::string SchoolYear() {
  std::ifstream file(QUORVANE_SCHOOL_YEAR);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool IsStatement(const std::string& line) { return line.starts_with("sql "); }

Lines WithoutStatements(Lines lines) {
  lines.erase(std::remove_if(lines.begin(), lines.end(), IsStatement), lines.end());
  return lines;
}

/// A table with True as 1, as the server has it and a file has not.
Lines Table(const std::string& file, const std::string& table) {
  Opened<sqlite::SqliteConnection> school(file, "", sqlite::OpenMode::ReadOnly);
  auto rows = RunRows(school, "SELECT * FROM " + table + " ORDER BY 1, 2");
  for (auto& row : rows)
    for (auto at = row.find("-1"); at != std::string::npos; at = row.find("-1")) row.erase(at, 1);
  return rows;
}

// The server of the tests can't read as of one moment, and has tables of other schemas.
TEST_F(SqlServerTest, ASchoolIsCopiedFromItAndWhatMayBeTornIsTold) {
  const TempFolder folder;
  const auto file = folder / "copia.sqlite";
  MakeSchool(SchoolAddress::Odbc(server.String()), Demo);
  const auto copy = CopySchool(SchoolAddress::Odbc(server.String()), SchoolAddress::File(file),
                               {[](std::size_t, std::size_t) {}, [] { return false; }});
  EXPECT_THAT(copy.notCopied, ElementsAre("Recibo"));
  EXPECT_FALSE(copy.oneMoment);
  for (const auto& table : SchoolTables())
    EXPECT_EQ(Table(file, table.name), Table(server.File(), table.name)) << table.name;
  const auto again = RunCommand("(" QUORVANE_ESCUELA " copiar " + Quoted(server.String()) + " " +
                                file + "2 2>&1 >/dev/null)");
  EXPECT_EQ(again.status, 3);
  EXPECT_THAT(again.text, StartsWith("quorvane-escuela: El origen no permite leerlo todo"));
}

TEST(DyingSqlServerTest, ThatDiesWhileItEndsASchoolLeavesUnknownWhetherItIsThere) {
  const TdsServer server("COMMIT TRANSACTION");
  EXPECT_THAT(StatementError([&] { MakeSchool(SchoolAddress::Odbc(server.String()), Demo); }),
              AllOf(StartsWith("No se sabe si se ha creado la escuela en "),
                    HasSubstr("«quorvane-escuela comprobar»"),
                    Not(HasSubstr("No ha quedado nada escrito"))));
}

TEST(DyingSqlServerTest, ThatDiesBetweenTheLocksAndTheirPublicationKeepsBoth) {
  const TdsServer server("DELETE FROM PublicacionPte WHERE");
  MakeSchool(SchoolAddress::Odbc(server.String()), Demo);
  const auto school = SchoolAddress::Odbc(server.String()).Open("");
  EXPECT_THAT(StatementError([&] { LockList(*school).Remove(1); }), HasSubstr("perdido la con"));
  EXPECT_EQ(Table(server.File(), "BloqueoPte").size(), 2U);
}

TEST_F(SqlServerTest, AWholeSchoolYearIsTheSameAsOnAFile) {
  TempFolder folder;
  const auto file = folder / "centro.sqlite";
  MakeSchool(SchoolAddress::File(file), Demo);
  MakeSchool(SchoolAddress::Odbc(server.String()), Demo);
  guion::PlayOptions onFile = On(server);
  onFile.odbc.clear();
  onFile.bd = file;
  auto status = -1;
  const auto expected = Play(onFile, SchoolYear(), status);
  EXPECT_EQ(status, 0);
  const auto before = server.Batches().size();
  const auto lines = Play(On(server), SchoolYear(), status);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(WithoutStatements(lines), WithoutStatements(expected));
  for (const auto& table : SchoolTables())
    EXPECT_EQ(Table(server.File(), table.name), Table(file, table.name)) << table.name;

  // What the module said is what the server heard, word for word and in that order, but for the
  // tables in the order of a UNION.
  const auto batches = server.Batches();
  auto at = batches.begin() + static_cast<std::ptrdiff_t>(before);
  auto statements = 0;
  for (const auto& line : lines) {
    if (!IsStatement(line)) continue;
    const auto statement = sqltext::OrderUnionByColumns(line.substr(line.find(' ', 4) + 1));
    at = std::find(at, batches.end(), statement);
    ASSERT_NE(at, batches.end()) << statement;
    ++at;
    ++statements;
  }
  EXPECT_GT(statements, 800);
  // Flags are compared as that engine has them.
  const auto compares = [&](const char* with) {
    return std::any_of(lines.begin(), lines.end(), [with](const std::string& line) {
      return IsStatement(line) && line.find(with) != std::string::npos;
    });
  };
  EXPECT_TRUE(compares("Abreviatura=1"));
  EXPECT_FALSE(compares("Abreviatura=-1"));
}

TEST(DyingSqlServerTest, ThatDiesInTheMiddleOfASaveEndsTheScreenWithTheError) {
  // The sample school ends at 105: this is the first that the register writes.
  const TdsServer server("INSERT INTO EvaluacionPte VALUES (106,");
  MakeSchool(SchoolAddress::Odbc(server.String()), Demo);
  auto status = -1;
  const auto lines = Play(On(server), SchoolYear(), status);
  EXPECT_EQ(status, 1);
  const auto error = std::find_if(lines.begin(), lines.end(),
                                  [](const auto& line) { return line.starts_with("error "); });
  ASSERT_NE(error, lines.end());
  EXPECT_THAT(*error,
              StartsWith("error -2147467259 Se ha perdido la conexión con la base de datos: ["));
  EXPECT_THAT(*(error - 1), StartsWith("sql centro INSERT INTO EvaluacionPte VALUES (106,"));
  // What had been written stays, and each later screen tells that nobody is there to connect to.
  EXPECT_THAT(Table(server.File(), "AlumnoPte_MatDet"), Contains(StartsWith("36|34|20|")));
  EXPECT_THAT(lines, Contains(StartsWith("error -2147467259 No se puede conectar con")));
  EXPECT_EQ(server.Batches().back(), (error - 1)->substr(sizeof "sql centro"));
}

}  // namespace
}  // namespace quorvane::test
