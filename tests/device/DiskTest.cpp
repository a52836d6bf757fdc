
#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolFile.h"
#include "platform/RuntimeError.h"
#include "tests/device/Device.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"

// The connection to a school on a disk that takes no more.

namespace quorvane::test {
namespace {

class DiskTest : public testing::Test {
 protected:
  void SetUp() override {
    MakeSchoolFile(path_, [](Connection&) {});
  }

  /// Inserts students until the disk refuses one; how many it took.
  int FillUp(Connection& school) {
    for (int count = 0;; ++count) {
      try {
        school.Execute("INSERT INTO Alumno (Nombre) VALUES ('" + std::string(2000, 'x') + "')");
      } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed));
        refusal_ = error.Description();
        return count;
      }
    }
  }

  static int Students(Connection& school) {
    return school.Execute("SELECT COUNT(*) FROM Alumno").Fields(0).Long();
  }

  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
  std::string refusal_;
};

TEST_F(DiskTest, FullIsTheNumberedErrorWithWhatToDoAndWhatWasWrittenStays) {
  Opened<sqlite::SqliteConnection> school(path_, "");
  school.ExecuteScript("PRAGMA max_page_count=200");
  const auto written = FillUp(school);
  EXPECT_EQ(
      refusal_,
      "database or disk is full. No queda espacio en el disco: haga sitio y repita lo último.");
  EXPECT_GT(written, 10);
  EXPECT_EQ(Students(school), written);
  school.ExecuteScript("PRAGMA max_page_count=400");
  school.Execute("INSERT INTO Alumno (Nombre) VALUES ('Eva')");
  EXPECT_EQ(Students(school), written + 1);
}

TEST_F(DiskTest, AFileThatCantGrowIsTheNumberedErrorWithWhatToDo) {
  int written = 0;
  {
    Opened<sqlite::SqliteConnection> school(path_, "");
    const LongestFile limit(400'000);
    written = FillUp(school);
    EXPECT_THAT(refusal_, HasSubstr("queda espacio en"));
    EXPECT_GT(written, 10);
    EXPECT_EQ(Students(school), written);
  }
  Opened<sqlite::SqliteConnection> again(path_, "");
  EXPECT_EQ(Students(again), written);
  EXPECT_EQ(again.Execute("PRAGMA integrity_check").Fields(0).Text(), "ok");
}

/// On a disk of its own.
class TinyDiskTest : public DiskTest {
 protected:
  void SetUp() override {
    if (!disk_.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
    DiskTest::SetUp();
    std::filesystem::copy_file(path_, there_);
  }

  TinyDisk disk_{"600k"};
  std::string there_ = disk_.Path() + "escuela.sqlite";
};

TEST_F(TinyDiskTest, FullIsTheNumberedErrorAlsoWhenTheSchoolIsOpened) {
  disk_.FillUp();
  sqlite::SqliteConnection school(there_, "");
  try {
    school.Open();
    ADD_FAILURE() << "a log beside the school has no room";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed));
    EXPECT_THAT(error.Description(),
                AllOf(StartsWith("No se puede abrir la base de datos " + there_),
                      HasSubstr("queda espacio en")));
  }
  EXPECT_EQ(Content(there_), Content(path_));
  disk_.MakeRoom();
  school.Open();
  EXPECT_EQ(Students(school), 0);
}

TEST_F(TinyDiskTest, WritingToOneThatCantBeWrittenIsTheNumberedError) {
  Opened<sqlite::SqliteConnection>(there_, "").Execute("PRAGMA journal_mode=delete");
  const auto before = Content(there_);
  disk_.ReadOnly(true);
  Opened<sqlite::SqliteConnection> school(there_, "");
  EXPECT_EQ(Students(school), 0) << "it can be read";
  EXPECT_EQ(FillUp(school), 0);
  EXPECT_THAT(refusal_, HasSubstr("dé permiso de escritura sobre el archivo y sobre su carpeta"));
  EXPECT_EQ(Content(there_), before);
}

TEST_F(TinyDiskTest, OneThatIsPulledOutTakesNothingMore) {
  Opened<sqlite::SqliteConnection> school(there_, "");
  disk_.PullOut();
  EXPECT_EQ(FillUp(school), 0);
  EXPECT_THAT(refusal_, StartsWith("Se ha perdido el archivo " + there_ + ": "));
  EXPECT_EQ(Students(school), 0);
  std::filesystem::copy_file(path_, there_);
  EXPECT_EQ(FillUp(school), 0) << "another disk, or none, in its place";
  EXPECT_THROW(school.Open(), RuntimeError);
}

}  // namespace
}  // namespace quorvane::test
