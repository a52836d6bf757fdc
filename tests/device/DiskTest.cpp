
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
  static int FillUp(Connection& school, RuntimeError& refusal) {
    for (int count = 0;; ++count) {
      try {
        school.Execute("INSERT INTO Alumno (Nombre) VALUES ('" + std::string(2000, 'x') + "')");
      } catch (const RuntimeError& error) {
        refusal = error;
        return count;
      }
    }
  }

  static int Students(Connection& school) {
    return school.Execute("SELECT COUNT(*) FROM Alumno").Fields(0).Long();
  }

  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
  RuntimeError refusal_{ErrorNumber::InvalidCall};
};

TEST_F(DiskTest, FullIsTheNumberedErrorWithWhatToDoAndWhatWasWrittenStays) {
  Opened<sqlite::SqliteConnection> school(path_, "");
  school.ExecuteScript("PRAGMA max_page_count=200");
  const auto written = FillUp(school, refusal_);
  EXPECT_TRUE(refusal_.Is(ErrorNumber::StatementFailed));
  EXPECT_EQ(
      refusal_.Description(),
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
    written = FillUp(school, refusal_);
    EXPECT_TRUE(refusal_.Is(ErrorNumber::StatementFailed));
    EXPECT_THAT(refusal_.Description(), HasSubstr("queda espacio en"));
    EXPECT_GT(written, 10);
    EXPECT_EQ(Students(school), written);
  }
  Opened<sqlite::SqliteConnection> again(path_, "");
  EXPECT_EQ(Students(again), written);
  EXPECT_EQ(again.Execute("PRAGMA integrity_check").Fields(0).Text(), "ok");
}

TEST_F(DiskTest, AFullDiskIsTheNumberedErrorAlsoWhenTheSchoolIsOpened) {
  const TinyDisk disk("600k");
  if (!disk.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
  const auto path = disk.Path() + "escuela.sqlite";
  std::filesystem::copy_file(path_, path);
  disk.FillUp();
  sqlite::SqliteConnection school(path, "");
  try {
    school.Open();
    ADD_FAILURE() << "a log beside the school has no room";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed));
    EXPECT_THAT(error.Description(), StartsWith("No se puede abrir la base de datos " + path));
    EXPECT_THAT(error.Description(), HasSubstr("queda espacio en"));
  }
  EXPECT_EQ(Content(path), Content(path_));
  disk.MakeRoom();
  school.Open();
  EXPECT_EQ(Students(school), 0);
}

TEST_F(DiskTest, WritingToADiskThatCantBeWrittenIsTheNumberedError) {
  const TinyDisk disk("2m");
  if (!disk.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
  const auto path = disk.Path() + "escuela.sqlite";
  std::filesystem::copy_file(path_, path);
  {
    Opened<sqlite::SqliteConnection> school(path, "");
    school.Execute("PRAGMA journal_mode=delete");
  }
  const auto before = Content(path);
  disk.ReadOnly(true);
  Opened<sqlite::SqliteConnection> school(path, "");
  EXPECT_EQ(Students(school), 0) << "it can be read";
  EXPECT_EQ(FillUp(school, refusal_), 0);
  EXPECT_TRUE(refusal_.Is(ErrorNumber::StatementFailed));
  EXPECT_THAT(refusal_.Description(),
              HasSubstr("dé permiso de escritura sobre el archivo y sobre su carpeta"));
  EXPECT_EQ(Content(path), before);
}

TEST_F(DiskTest, ADiskThatIsPulledOutTakesNothingMore) {
  TinyDisk disk("2m");
  if (!disk.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
  const auto path = disk.Path() + "escuela.sqlite";
  std::filesystem::copy_file(path_, path);
  Opened<sqlite::SqliteConnection> school(path, "");
  disk.PullOut();
  EXPECT_EQ(FillUp(school, refusal_), 0);
  EXPECT_TRUE(refusal_.Is(ErrorNumber::StatementFailed));
  EXPECT_THAT(refusal_.Description(), StartsWith("Se ha perdido el archivo " + path + ": "));
  EXPECT_EQ(Students(school), 0);
  std::filesystem::copy_file(path_, path);
  EXPECT_EQ(FillUp(school, refusal_), 0) << "another disk, or none, in its place";
  EXPECT_THROW(school.Open(), RuntimeError);
}

}  // namespace
}  // namespace quorvane::test
