// A school's file that is deleted, moved or replaced while a connection has it open.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <iterator>
#include <map>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/StatementError.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;
using sqlite::OpenMode;
using sqlite::SqliteConnection;
using namespace std::chrono_literals;

constexpr auto kLongEnough = 1100ms;  // for a look to be trusted no more

const std::string kPutBack =
    ". Devuélvalo a su sitio, o recupere una copia y abra la escuela de nuevo; hasta entonces no "
    "se guarda nada.";
const std::string kGone = ": se ha borrado, movido o cambiado de nombre" + kPutBack;
const std::string kFolder = ": una carpeta ha ocupado su sitio" + kPutBack;
const std::string kOther =
    ": otro ha ocupado su sitio. Abra la escuela de nuevo para trabajar con el que hay ahora, o "
    "devuelva el anterior a su sitio; hasta entonces no se guarda nada.";
const std::string kOutOfReach =
    ": no se puede llegar a él (Permission denied). Compruebe el disco, la red y los permisos de "
    "sus carpetas; hasta entonces no se guarda nada.";

/// Nothing of a folder may be reached while it lives, by the administrator neither.
class ClosedFolder {
 public:
  explicit ClosedFolder(std::string path) : path_(std::move(path)) {
    chmod(path_.c_str(), 0);
    if (getuid() == 0) asOther_ = seteuid(65534) == 0;
  }
  ~ClosedFolder() {
    if (asOther_ && seteuid(0) != 0) std::abort();
    chmod(path_.c_str(), 0700);
  }
  ClosedFolder(ClosedFolder&&) = delete;

 private:
  std::string path_;
  bool asOther_ = false;
};

/// In either of the journal modes that a school's file may have.
class LostFileTest : public testing::TestWithParam<const char*> {
 protected:
  LostFileTest() {
    fs::create_directory(folder_);
    Make(path_, "propio");
    connection_.Open();
  }

  /// A file with one row.
  static void Make(const std::string& path, const std::string& row) {
    Opened<SqliteConnection> maker(path, "", OpenMode::Create);
    maker.ExecuteScript("PRAGMA journal_mode=" + std::string(GetParam()) +
                        ";CREATE TABLE T (A TEXT);INSERT INTO T VALUES ('" + row + "')");
  }

  /// All that lies in the test's folders, but for what readers note beside a log.
  [[nodiscard]] std::map<std::string, std::string> Contents() const {
    std::map<std::string, std::string> contents;
    for (const auto& entry : fs::recursive_directory_iterator(whole_ / "")) {
      if (!entry.is_regular_file() || entry.path().string().ends_with("-shm")) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      contents[entry.path().string()] = {std::istreambuf_iterator<char>(file), {}};
    }
    return contents;
  }

  static std::string Refusal(const Connection& connection, const std::string& what) {
    return "error Se ha perdido el archivo " + connection.DataSource() + what;
  }

  /// The connection refuses in these words whatever would write, again and again, and reaching the
  /// file anew; neither the file that it has nor any that has a name takes anything.
  void ExpectLost(SqliteConnection& connection, const std::string& what) const {
    const auto refusal = Refusal(connection, what);
    const auto rows = RunRows(connection, "SELECT A FROM T");
    const auto before = Contents();
    for (const auto* const statement :
         {"INSERT INTO T VALUES ('perdido')", "UPDATE T SET A='perdido' WHERE A<>'1'",
          "DELETE FROM T WHERE A<>'2'", "CREATE TABLE U (A INTEGER)", "DROP TABLE T",
          "INSERT INTO T VALUES ('perdido')"})
      EXPECT_THAT(RunRows(connection, statement), ElementsAre(refusal)) << statement;
    EXPECT_EQ(ErrorOf([&] { connection.ExecuteScript("INSERT INTO T VALUES ('perdido')"); }),
              refusal);
    EXPECT_EQ(ErrorOf([&] { connection.Open(); }), refusal);
    EXPECT_TRUE(connection.IsOpen());
    EXPECT_EQ(RunRows(connection, "SELECT A FROM T"), rows) << "it can still be read";
    EXPECT_EQ(Contents(), before);
  }

  /// As `RunRows` tells of it.
  static std::string ErrorOf(const std::function<void()>& work) {
    return "error " + StatementError(work);
  }

  /// Whether the connection writes into the file that has its name.
  void ExpectWrites() {
    connection_.Open();
    connection_.Execute("INSERT INTO T VALUES ('segundo')");
    EXPECT_THAT(Rows(), ElementsAre("propio", "segundo"));
  }

  /// A transaction that has written, and is open when the file is lost.
  void LoseInATransaction() {
    connection_.Execute("BEGIN");
    connection_.Execute("INSERT INTO T VALUES ('perdido')");
    std::this_thread::sleep_for(kLongEnough);
    fs::remove(path_);
  }

  std::vector<std::string> Rows() { return RunRows(connection_, "SELECT A FROM T"); }

  TempFolder whole_;
  std::string folder_ = whole_ / "centro";
  std::string path_ = folder_ + "/escuela.sqlite";
  std::string away_ = folder_ + "/apartada.sqlite";
  SqliteConnection connection_{path_, ""};
};

INSTANTIATE_TEST_SUITE_P(Journal, LostFileTest, testing::Values("delete", "wal"),
                         [](const auto& mode) { return std::string(mode.param); });

TEST_P(LostFileTest, Deleted) {
  fs::remove(path_);
  ExpectLost(connection_, kGone);
  EXPECT_THAT(Rows(), ElementsAre("propio"));
  connection_.Close();
  EXPECT_EQ(ErrorOf([&] { connection_.Open(); }),
            "error No se puede abrir la base de datos " + path_ + ": el archivo no existe");
}

TEST_P(LostFileTest, ReplacedByAnotherSchool) {
  Make(away_, "ajeno");
  fs::rename(away_, path_);
  ExpectLost(connection_, kOther);
  EXPECT_THAT(Rows(), ElementsAre("propio"));
  connection_.Close();
  for (const auto* const ending : {"-wal", "-shm"}) fs::remove(path_ + ending);
  connection_.Open();
  EXPECT_THAT(Rows(), ElementsAre("ajeno"));
  connection_.Execute("INSERT INTO T VALUES ('segundo')");
  EXPECT_THAT(Rows(), ElementsAre("ajeno", "segundo"));
}

TEST_P(LostFileTest, MovedWithACopyInItsPlace) {
  fs::rename(path_, away_);
  fs::copy_file(away_, path_);
  ExpectLost(connection_, kOther);
}

TEST_P(LostFileTest, MovedAwayAndBack) {
  fs::rename(path_, away_);
  ExpectLost(connection_, kGone);
  fs::rename(away_, path_);
  ExpectWrites();
}

TEST_P(LostFileTest, BackInItsPlaceByItselfWithinASecond) {
  fs::rename(path_, away_);
  ExpectLost(connection_, kGone);
  fs::rename(away_, path_);
  const auto until = std::chrono::steady_clock::now() + 10s;
  std::vector<std::string> answer;
  do {
    std::this_thread::sleep_for(50ms);
    answer = RunRows(connection_, "INSERT INTO T VALUES ('segundo')");
  } while (!answer.empty() && std::chrono::steady_clock::now() < until);
  EXPECT_THAT(Rows(), ElementsAre("propio", "segundo"));
}

TEST_P(LostFileTest, ItsFolderRenamed) {
  fs::rename(folder_, whole_ / "otro");
  ExpectLost(connection_, kGone);
  std::ofstream(folder_) << "a file where the folder was";
  ExpectLost(connection_, kGone);
}

TEST_P(LostFileTest, ItsFolderRenamedAndAnotherSchoolInOneOfThatName) {
  fs::rename(folder_, whole_ / "otro");
  fs::create_directory(folder_);
  Make(path_, "ajeno");
  ExpectLost(connection_, kOther);
}

TEST_P(LostFileTest, AFolderInItsPlace) {
  fs::rename(path_, away_);
  fs::create_directory(path_);
  ExpectLost(connection_, kFolder);
}

TEST_P(LostFileTest, OutOfReach) {
  const auto refusal = Refusal(connection_, kOutOfReach);
  {
    const ClosedFolder closed(folder_);
    EXPECT_THAT(RunRows(connection_, "INSERT INTO T VALUES ('perdido')"), ElementsAre(refusal));
    EXPECT_EQ(ErrorOf([&] { connection_.Open(); }), refusal);
  }
  ExpectWrites();
}

TEST_P(LostFileTest, ALinkThatLeadsElsewhere) {
  Make(away_, "ajeno");
  const auto link = whole_ / "enlace.sqlite";
  fs::create_symlink(path_, link);
  Opened<SqliteConnection> linked(link, "");
  fs::remove(link);
  fs::create_symlink(away_, link);
  ExpectLost(linked, kOther);
  connection_.Execute("INSERT INTO T VALUES ('segundo')");
  EXPECT_THAT(RunRows(linked, "SELECT A FROM T"), ElementsAre("propio", "segundo"));
  fs::remove(link);
  EXPECT_EQ(ErrorOf([&] { linked.Open(); }), Refusal(linked, kGone));
  ExpectLost(linked, kGone);
}

TEST_P(LostFileTest, AnotherLinkToTheSameFileIsAsGood) {
  const auto link = whole_ / "enlace.sqlite";
  fs::create_symlink(path_, link);
  Opened<SqliteConnection> linked(link, "");
  fs::remove(link);
  fs::create_symlink(folder_ + "/./escuela.sqlite", link);
  linked.Open();
  linked.Execute("INSERT INTO T VALUES ('segundo')");
  fs::remove(link);
  fs::create_hard_link(path_, link);
  linked.Open();
  linked.Execute("INSERT INTO T VALUES ('tercero')");
  EXPECT_THAT(Rows(), ElementsAre("propio", "segundo", "tercero"));
}

// The engine keeps its journal where the file was: who came by the link would have another.
TEST_P(LostFileTest, MovedWithALinkToItInItsPlace) {
  fs::rename(path_, away_);
  fs::create_symlink(away_, path_);
  ExpectLost(connection_, kGone);
}

TEST_P(LostFileTest, OneThatIsRewrittenWhereItLiesIsTheSame) {
  Opened<SqliteConnection>(path_, "").Execute("VACUUM");
  chmod(path_.c_str(), 0640);
  ExpectWrites();
}

TEST_P(LostFileTest, ARelativePathIsKeptWhenTheProgramGoesElsewhere) {
  const auto here = fs::current_path();
  fs::current_path(folder_);
  Opened<SqliteConnection> relative("escuela.sqlite", "");
  fs::current_path(whole_ / "");
  relative.Execute("INSERT INTO T VALUES ('segundo')");
  fs::rename(path_, away_);
  EXPECT_EQ(ErrorOf([&] { relative.Open(); }), Refusal(relative, kGone));
  ExpectLost(relative, kGone);
  fs::current_path(here);
}

TEST_P(LostFileTest, ATransactionThatIsOpenThenIsNotCommitted) {
  LoseInATransaction();
  EXPECT_THAT(RunRows(connection_, "COMMIT"), ElementsAre(Refusal(connection_, kGone)));
  EXPECT_THAT(Rows(), ElementsAre("propio"));
  ExpectLost(connection_, kGone);
}

TEST_P(LostFileTest, ATransactionThatIsOpenThenCanBeGivenUp) {
  LoseInATransaction();
  EXPECT_THAT(RunRows(connection_, "INSERT INTO T VALUES ('perdido')"),
              ElementsAre(Refusal(connection_, kGone)));
  EXPECT_THAT(RunRows(connection_, "ROLLBACK"), IsEmpty());
  EXPECT_THAT(Rows(), ElementsAre("propio"));
}

TEST_P(LostFileTest, WhileAStatementWaitsForAnothersWrite) {
  Opened<SqliteConnection> other(path_, "");
  other.Execute("BEGIN IMMEDIATE");
  auto waiting = std::async(std::launch::async, [this] {
    return RunRows(connection_, "INSERT INTO T VALUES ('perdido')");
  });
  EXPECT_EQ(waiting.wait_for(kLongEnough), std::future_status::timeout);
  fs::remove(path_);
  other.Execute("ROLLBACK");
  EXPECT_THAT(waiting.get(), ElementsAre(Refusal(connection_, kGone)));
  EXPECT_THAT(Rows(), ElementsAre("propio"));
}

TEST_P(LostFileTest, AScriptStopsBeforeItsFirstWrite) {
  fs::remove(path_);
  EXPECT_NO_THROW(connection_.ExecuteScript("SELECT A FROM T; -- x\n ; PRAGMA cache_size"));
  EXPECT_EQ(ErrorOf([&] { connection_.ExecuteScript("SELECT A FROM T; BEGIN; DELETE FROM T"); }),
            Refusal(connection_, kGone));
  EXPECT_THAT(Rows(), ElementsAre("propio")) << "inside the transaction, too";
}

TEST_P(LostFileTest, AStatementThatIsWrongIsToldSoWhileTheFileIsThere) {
  EXPECT_THAT(RunRows(connection_, "INSERT INTO T VALUES (1,2)"),
              ElementsAre("error table T has 1 columns but 2 values were supplied"));
  EXPECT_EQ(ErrorOf([&] { connection_.ExecuteScript("DELETE FROM T WHERE A='1'; DELETE FROM U"); }),
            "error no such table: U");
}

TEST(NoFileTest, ADatabaseInMemoryHasNoneToLose) {
  for (const std::string path : {":memory:", ""}) {
    Opened<SqliteConnection> memory(path, "", OpenMode::Create);
    memory.Execute("CREATE TABLE T (A INTEGER)");
    memory.Open();
    memory.Execute("INSERT INTO T VALUES (1)");
    memory.ExecuteScript("BEGIN; INSERT INTO T VALUES (2); COMMIT");
    EXPECT_THAT(RunRows(memory, "SELECT A FROM T"), ElementsAre("1", "2"));
  }
}

}  // namespace
}  // namespace quorvane::test
