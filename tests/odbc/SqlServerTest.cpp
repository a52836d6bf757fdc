// FreeTDS's driver against a server of SQL Server's protocol.

#include <algorithm>
#include <csignal>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

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
#include "tests/sqlite/RunRows.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"
#include "tests/support/StatementError.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using odbc::OdbcConnection;

using Lines = std::vector<std::string>;

void Demo(Connection& school) { DemoSchool(school).Build(); }

/// A server of SQL Server's protocol on this machine, on an empty database of its own, for
/// FreeTDS's driver to connect to. It ends with the object.
class TdsServer {
 public:
  /// The server ends at once, without an answer, at the batch that holds `diesAt`; empty for none.
  /// `product` is what it calls itself.
  explicit TdsServer(const std::string& diesAt = {},
                     const std::string& product = "Microsoft SQL Server") {
    const auto log = folder_ / "lotes.json";
    const auto file = File();
    for (const auto& path : {log, file}) std::ofstream(path, std::ios::app).flush();
    std::vector<const char*> arguments{
        QUORVANE_PYTHON, QUORVANE_TDS_SERVER, "--db",       file.c_str(),
        "--log",         log.c_str(),         "--password", "secreto",
        "--schema",      QUORVANE_SCHEMA,     "--product",  product.c_str()};
    if (!diesAt.empty()) arguments.insert(arguments.end(), {"--dies-at", diesAt.c_str()});
    arguments.push_back(nullptr);
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("pipe");
    process_ = fork();
    if (process_ == 0) {
      dup2(ends[1], STDOUT_FILENO);
      close(ends[0]);
      close(ends[1]);
      execv(QUORVANE_PYTHON, const_cast<char* const*>(arguments.data()));
      _exit(127);
    }
    close(ends[1]);
    for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) port_ += digit;
    close(ends[0]);
    if (port_.empty()) throw std::runtime_error("the server of the tests doesn't start");
  }
  ~TdsServer() { Kill(); }
  TdsServer(TdsServer&&) = delete;

  [[nodiscard]] std::string String(const std::string& password = "secreto") const {
    return "Driver=FreeTDS;Server=127.0.0.1;Port=" + port_ +
           ";TDS_Version=7.4;Database=Centro;UID=zendria;PWD=" + password;
  }
  /// The batches that have reached it, each as it came.
  [[nodiscard]] std::vector<std::string> Batches() const {
    std::vector<std::string> batches;
    std::ifstream log(folder_ / "lotes.json");
    for (std::string line; std::getline(log, line);)
      batches.push_back(nlohmann::json::parse(line).get<std::string>());
    return batches;
  }
  /// The file behind it.
  [[nodiscard]] std::string File() const { return folder_ / "centro.sqlite"; }
  /// Ends it, as a machine does that loses its power.
  void Kill() {
    if (process_ == 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  TempFolder folder_;
  pid_t process_ = 0;
  std::string port_;
};

class SqlServerTest : public testing::Test {
 protected:
  TdsServer server;
  SchoolAddress address = SchoolAddress::Odbc(server.String());
};

class OpenSqlServerTest : public SqlServerTest {
 protected:
  Opened<OdbcConnection> con{server.String(), ""};
};

TEST_F(OpenSqlServerTest, IsWhatTheDriverNames) {
  EXPECT_EQ(con.ReachedEngine(), sqltext::Engine::SqlServer);
  EXPECT_EQ(con.DataSource(), "127.0.0.1");
}

TEST_F(OpenSqlServerTest, ValuesOfEveryType) {
  std::string longest;
  for (auto i = 0; i < 30000; ++i) longest += "ñ😀";
  auto rows = RunRows(con, "EXEC tipos");
  for (auto& row : rows)
    if (const auto at = row.find(longest); at != std::string::npos)
      row.replace(at, longest.size(), "THE LONGEST");
  EXPECT_THAT(
      rows,
      ElementsAre("255|-32768|-2147483648|9007199254740993|-1|2.5|0.5|-12.34|2026/03/01|"
                  "2026/12/31|Íñigo 😀|Ñúñez|THE LONGEST|03020100-0504-0706-0809-0A0B0C0D0E0F",
                  "NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL",
                  "255|-32768|-2147483648|9007199254740993|-1|2.5|0.5|700|2026/03/01|"
                  "2026/12/31|Íñigo 😀|Ñúñez|THE LONGEST|03020100-0504-0706-0809-0A0B0C0D0E0F"));
  const auto again = con.Execute("EXEC tipos");
  EXPECT_THAT(again.Names(),
              ElementsAre("tinyint", "smallint", "int", "bigint", "bit", "float", "real", "decimal",
                          "datetime", "date", "nvarchar", "varchar", "nvarchar(max)", "guid"));
  EXPECT_FALSE(again.Fields("decimal").IsText());
}

TEST_F(OpenSqlServerTest, ATextReachesItUnchanged) {
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

TEST_F(OpenSqlServerTest, OfSeveralPartsTheFirstRowsCountAndTheLastFailureTells) {
  EXPECT_THAT(RunRows(con, "EXEC partes"), ElementsAre("7"));
  EXPECT_EQ(StatementError([&] { con.Execute("EXEC falla"); }),
            "[23000] La parte última falló, señor (547)");
  EXPECT_TRUE(con.IsOpen());
  EXPECT_THAT(RunRows(con, "EXEC partes"), ElementsAre("7"));
}

TEST_F(OpenSqlServerTest, AFailureTellsStateTextAndNumber) {
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

TEST_F(OpenSqlServerTest, ALostConnectionIsToldAndClosed) {
  con.Execute("SELECT 1");
  server.Kill();
  EXPECT_THAT(StatementError([&] { con.Execute("SELECT 2"); }),
              StartsWith("Se ha perdido la conexión con la base de datos: ["));
  EXPECT_FALSE(con.IsOpen());
  EXPECT_THAT([&] { con.Execute("SELECT 3"); },
              testing::Throws<RuntimeError>(testing::Property(&RuntimeError::Number, 3704)));
  EXPECT_THAT(StatementError([&] { con.Open(); }), StartsWith("No se puede conectar"));
}

TEST_F(SqlServerTest, TakesASchoolAndKeepsIt) {
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

/// What the script of a school year prints, a line an event.
Lines PlaySchoolYear(const guion::PlayOptions& options, int& status) {
  gblnMostrarAnchoNotas = false;
  std::ifstream commands(QUORVANE_SCHOOL_YEAR);
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

bool IsStatement(const std::string& line) { return line.starts_with("sql "); }

Lines WithoutStatements(Lines lines) {
  std::erase_if(lines, IsStatement);
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
  MakeSchool(address, Demo);
  const auto copy = CopySchool(address, SchoolAddress::File(file),
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
  MakeSchool(address, Demo);
  guion::PlayOptions onFile = On(server);
  onFile.odbc.clear();
  onFile.bd = file;
  auto status = -1;
  const auto expected = PlaySchoolYear(onFile, status);
  EXPECT_EQ(status, 0);
  const auto before = server.Batches().size();
  const auto lines = PlaySchoolYear(On(server), status);
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
  const auto lines = PlaySchoolYear(On(server), status);
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
