// What can be wrong with a server and what it may refuse: told with the driver's words and the
// user's, and nothing half written by our tools.

#include <cstdlib>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/OdbcConnection.h"
#include "apps/escuela/CopySchool.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/SchoolGenerator.h"
#include "frame/schema/SchoolSchema.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/StatementError.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using odbc::OdbcConnection;

void Demo(Connection& school) { DemoSchool(school).Build(); }

std::string OpeningTold(const std::string& string) {
  OdbcConnection connection(string, "");
  const auto told = StatementError([&] { connection.Open(); });
  EXPECT_FALSE(connection.IsOpen());
  return told;
}

class BadServerTest : public testing::Test {
 protected:
  ~BadServerTest() override {
    for (const auto& name : made_) Server("DROP DATABASE " + name + " WITH (FORCE)");
  }

  static void Server(const std::string& statement) {
    Opened<OdbcConnection>(OwnerString("postgres"), "").Execute(statement);
  }

  /// A database of the owner's, which goes with the test.
  std::string Database(const std::string& more = "") {
    static auto number = 0;
    auto name = "mala_" + std::to_string(getpid()) + "_" + std::to_string(++number);
    Server("CREATE DATABASE " + name + more);
    made_.push_back(name);
    return name;
  }

  static SchoolAddress Owners(const std::string& name) {
    return SchoolAddress::Odbc(OwnerString(name));
  }
  static std::vector<std::string> TablesOf(const std::string& name) {
    return RunRows(*Owners(name).Open(""),
                   "SELECT count(*) FROM pg_tables WHERE schemaname='public'");
  }

  /// What is told where a school is to be made, and where its publication is to be removed.
  static std::string MakingTold(const SchoolAddress& at,
                                const std::function<void(Connection&)>& fill = Demo) {
    return StatementError([&] { MakeSchool(at, fill); });
  }
  static std::string RemovingTold(Connection& school) {
    return StatementError([&] { LockList(school).Remove(1); });
  }
  static std::string CopyingTold(const SchoolAddress& from, const SchoolAddress& to) {
    return StatementError([&] {
      CopySchool(from, to, {[](std::size_t, std::size_t) {}, [] { return false; }});
    });
  }
  [[nodiscard]] SchoolAddress CopyFile() const {
    return SchoolAddress::File(folder_ / "copia.sqlite");
  }
  /// How many subjects the first publication holds.
  static std::size_t SubjectsHeld(Connection& school) {
    return LockList(school).Read().front().subjects.size();
  }

  SchoolAddress FileSchool(const std::function<void(Connection&)>& fill = Demo) {
    const auto path = folder_ / "origen.sqlite";
    MakeSchoolFile(path, fill);
    return SchoolAddress::File(path);
  }

  TempFolder folder_;

 private:
  std::vector<std::string> made_;
};

TEST_F(BadServerTest, AServerBeforeVersion12IsRefused) {
  odbc::ConnectionString string(OwnerString("postgres"));
  string.Set("Port", std::getenv("QUORVANE_PRUEBAS_ANTIGUO"));
  EXPECT_THAT(
      OpeningTold(string.Text()),
      AllOf(StartsWith("No se puede usar esta base de datos: su servidor es PostgreSQL 11."),
            EndsWith(", y hace falta la versión 12 o una posterior")));
}

TEST_F(BadServerTest, ADatabaseOfAnotherEncodingIsRefused) {
  for (const std::string encoding : {"LATIN1", "SQL_ASCII"}) {
    const auto name =
        Database(" ENCODING '" + encoding + "' LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE template0");
    EXPECT_THAT(OpeningTold(OwnerString(name)),
                StartsWith("No se puede usar esta base de datos: guarda los textos en " + encoding +
                           ", y ha de guardarlos en UTF8."));
    EXPECT_THAT(MakingTold(Owners(name)), HasSubstr(encoding));
  }
}

TEST_F(BadServerTest, AListOfPortsThatTheDriverWouldCutIsRefused) {
  const auto refusal = [](const std::string& ports) {
    return OpeningTold("Driver=PostgreSQL Unicode;Server=127.0.0.1,127.0.0.2;Port=" + ports +
                       ";Database=nada;UID=zendria");
  };
  EXPECT_THAT(refusal("25432,25433"),
              HasSubstr("solo toma los nueve primeros caracteres de Port, y "
                        "«25432,25433» tiene más"));
  // Privileged ones that nobody listens at.
  EXPECT_THAT(refusal("1001,1002"), AllOf(HasSubstr("port 1001"), HasSubstr("port 1002")));
}

TEST_F(BadServerTest, AWrongPasswordSpeaksOfUserAndPassword) {
  odbc::ConnectionString string(OwnerString("postgres"));
  string.Set("PWD", "no es esta");
  EXPECT_THAT(OpeningTold(string.Text()),
              AllOf(HasSubstr("password authentication failed"),
                    EndsWith("Compruebe el usuario y la contraseña (UID y PWD) y que ese usuario "
                             "puede abrir la base de datos")));
  string.Set("UID", "nadie");
  EXPECT_THAT(OpeningTold(string.Text()), HasSubstr("Compruebe el usuario y la contraseña"));
  EXPECT_THAT(OpeningTold(OwnerString("postgres") + ";PWD=no-se-repite"),
              Not(HasSubstr("no-se-repite")));
  EXPECT_THAT(OpeningTold(OwnerString("no_hay_tal")),
              AllOf(StartsWith("No se puede conectar con la base de datos: "),
                    HasSubstr("database \"no_hay_tal\" does not exist"),
                    HasSubstr("el servidor y la base de datos")));
}

TEST_F(BadServerTest, TablesWithTheirNamesInQuotesAreNamed) {
  const auto name = Database();
  MakeSchool(Owners(name), Demo);
  const auto school = Owners(name).Open("");
  const auto findings = [&] { return SchoolCheck(*school).Structure(SchoolCheck::For::Module); };
  school->Execute("ALTER TABLE Alumno RENAME COLUMN IDAlumno TO \"IDAlumno\"");
  EXPECT_THAT(findings(), ElementsAre("En la tabla Alumno la columna «IDAlumno» se hizo con su "
                                      "nombre entre comillas, y en PostgreSQL ha de llamarse "
                                      "idalumno"));
  school->Execute("ALTER TABLE Nota RENAME TO \"Nota\"");
  const std::string told =
      "La tabla «Nota» se hizo con su nombre entre comillas, y en PostgreSQL ha de llamarse nota";
  EXPECT_THAT(findings(), ElementsAre(told));
  EXPECT_THAT(CopyingTold(Owners(name), CopyFile()),
              AllOf(StartsWith("No se puede copiar "), EndsWith(told)));
  EXPECT_EQ(folder_.Files(), 0U);
}

TEST_F(BadServerTest, NoSchoolIsMadeBesideATableWithItsNameInQuotes) {
  const auto name = Database();
  Owners(name).Open("")->Execute("CREATE TABLE \"ALUMNO\" (a integer)");
  EXPECT_THAT(MakingTold(Owners(name)),
              EndsWith("ya tiene la tabla «ALUMNO», hecha con su nombre entre comillas"));
  EXPECT_THAT(TablesOf(name), ElementsAre("1"));
}

TEST_F(BadServerTest, TablesOfAnotherOwnerAreTold) {
  const auto name = Database();
  const auto teacher = SchoolAddress::Odbc(ServerString(name));
  const auto words = HasSubstr(
      ". El usuario con el que se conecta no tiene permiso para hacerlo: pida al técnico que se lo "
      "dé");
  EXPECT_THAT(MakingTold(teacher),
              AllOf(HasSubstr("[42501] "), words, EndsWith("No ha quedado nada escrito")));
  EXPECT_THAT(TablesOf(name), ElementsAre("0"));
  MakeSchool(Owners(name), Demo);
  const auto school = teacher.Open("");
  EXPECT_THAT(StatementError([&] { RequireSchool(*school); }),
              AllOf(StartsWith("[42501] ERROR: permission denied for table "), words));
  EXPECT_THAT(RemovingTold(*school), AllOf(StartsWith("[42501]"), words));
  EXPECT_THAT(CopyingTold(teacher, CopyFile()), words);
  EXPECT_EQ(folder_.Files(), 0U);
  EXPECT_EQ(SubjectsHeld(*Owners(name).Open("")), 2U);
}

TEST_F(BadServerTest, AReadOnlyLoginReadsAndWritesNothing) {
  const auto name = Database();
  const auto readOnly = [&name](const char* on) {
    Server("ALTER DATABASE " + name + " SET default_transaction_read_only=" + on);
  };
  const auto words = HasSubstr(". La base de datos o el usuario con el que se conecta son de solo");
  readOnly("on");
  EXPECT_THAT(MakingTold(Owners(name)),
              AllOf(HasSubstr("[25006] "), words, EndsWith("No ha quedado nada escrito")));
  EXPECT_THAT(CopyingTold(FileSchool(), Owners(name)),
              AllOf(HasSubstr("[25006] "), words, EndsWith("No ha quedado nada escrito")));
  EXPECT_THAT(TablesOf(name), ElementsAre("0"));
  readOnly("off");
  MakeSchool(Owners(name), Demo);
  readOnly("on");
  const auto school = Owners(name).Open("");
  EXPECT_THAT(SchoolCheck(*school).Structure(SchoolCheck::For::Host), IsEmpty());
  EXPECT_THAT(RemovingTold(*school), AllOf(StartsWith("[25006]"), words));
  EXPECT_THAT(
      StatementError([&] { school->Execute("INSERT INTO PublicacionPte VALUES (2,1,1,4,1)"); }),
      AllOf(StartsWith("[25006]"), words));
  EXPECT_EQ(SubjectsHeld(*school), 2U);
  EXPECT_EQ(CopyingTold(Owners(name), CopyFile()), "no error");
}

TEST_F(BadServerTest, AFullDiskLeavesNothing) {
  const std::string disk = std::getenv("QUORVANE_PRUEBAS_DISCO");
  if (disk.empty()) GTEST_SKIP() << "only an administrator mounts a disk";
  const auto name = Database();
  Server("ALTER DATABASE " + name + " SET default_tablespace='" + disk + "'");
  const auto large = [](Connection& school) {
    SchoolGenerator(school).Build(20000, 3, [](std::size_t) {});
  };
  const auto full = AllOf(HasSubstr("[53100] "), HasSubstr(". El disco del servidor está lleno"),
                          EndsWith("No ha quedado nada escrito"));
  EXPECT_THAT(CopyingTold(FileSchool(large), Owners(name)), full);
  EXPECT_THAT(TablesOf(name), ElementsAre("0"));
  EXPECT_THAT(MakingTold(Owners(name), large), full);
  EXPECT_THAT(TablesOf(name), ElementsAre("0"));
  // There is room again for what fits.
  MakeSchool(Owners(name), Demo);
}

TEST_F(BadServerTest, AStatementThatTheServerCancelsIsTold) {
  const auto name = Database();
  Server("ALTER DATABASE " + name + " SET statement_timeout='300ms'");
  const auto words = HasSubstr(". El servidor ha cancelado la sentencia: ");
  const auto holder = Owners(name).Open("");
  // A table of that name that nobody sees yet is waited for.
  holder->Execute("BEGIN");
  holder->Execute("CREATE TABLE Nota (a integer)");
  EXPECT_THAT(MakingTold(Owners(name)),
              AllOf(HasSubstr("[57014] "), words, EndsWith("No ha quedado nada escrito")));
  EXPECT_THAT(CopyingTold(FileSchool(), Owners(name)),
              AllOf(HasSubstr("[57014] "), words, EndsWith("No ha quedado nada escrito")));
  holder->Execute("ROLLBACK");
  EXPECT_THAT(TablesOf(name), ElementsAre("0"));

  MakeSchool(Owners(name), Demo);
  const auto school = Owners(name).Open("");
  holder->Execute("BEGIN");
  holder->Execute("LOCK TABLE PublicacionPte IN SHARE MODE");
  EXPECT_THAT(RemovingTold(*school), AllOf(StartsWith("[57014]"), words));
  EXPECT_TRUE(school->IsOpen());
  EXPECT_EQ(SubjectsHeld(*school), 2U);
  holder->Execute("LOCK TABLE Nota");
  EXPECT_THAT(CopyingTold(Owners(name), CopyFile()), AllOf(HasSubstr("[57014] "), words));
  EXPECT_EQ(folder_.Files(), 1U);
  holder->Execute("ROLLBACK");
  EXPECT_TRUE(LockList(*school).Remove(1));
}

// Another's form may have taken the number since.
TEST_F(BadServerTest, APublicationThatIsAnothersByThenStays) {
  const auto name = Database();
  MakeSchool(Owners(name), Demo);
  const auto school = Owners(name).Open("");
  const auto other = Owners(name).Open("");
  school->Observe([&](const Connection&, const std::string& statement) {
    if (!statement.starts_with("DELETE FROM BloqueoPte WHERE CodPublicacion=")) return;
    other->Execute("DELETE FROM BloqueoPte WHERE CodPublicacion=1");
    other->Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=1");
    other->Execute("INSERT INTO PublicacionPte VALUES (1,0,8,4,1)");
    other->Execute("INSERT INTO BloqueoPte VALUES (0,1,7,8,1)");
  });
  LockList list(*school);
  const auto seen = list.Read().front();
  EXPECT_THAT(StatementError([&] { list.RemoveUnchanged(seen); }),
              AllOf(StartsWith("[40001]"),
                    EndsWith(". Otro usuario cambiaba lo mismo a la vez: vuelva a intentarlo")));
  const auto now = LockList(*other).Read();
  ASSERT_EQ(now.size(), 1U);
  EXPECT_EQ(now.front().owner, 8);
  EXPECT_EQ(now.front().subjects.size(), 1U);
}

TEST_F(BadServerTest, ASourcesOwnSettingsCountBesideTheSchools) {
  Opened<OdbcConnection> connection(OwnerString("postgres") + ";pqopt={application_name=aula}", "");
  EXPECT_THAT(RunRows(connection, "SELECT current_setting('application_name')"),
              ElementsAre("aula"));
}

}  // namespace
}  // namespace quorvane::test
