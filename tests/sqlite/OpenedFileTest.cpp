#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/OpenedFile.h"
#include "platform/RuntimeError.h"
#include "tests/support/TempFolder.h"

namespace quorvane::sqlite {
namespace {

using namespace std::chrono_literals;

/// A clock that the tests turn tells when the file was looked for: what has happened to it since
/// isn't known.
class OpenedFileTest : public testing::Test {
 protected:
  [[nodiscard]] OpenedFile& File() const { return database_.File(); }
  void Move() const { std::filesystem::rename(path_, away_); }
  void MoveBack() const { std::filesystem::rename(away_, path_); }

  test::TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
  std::string away_ = folder_ / "apartada.sqlite";
  Database database_{path_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, 0ms};
  OpenedFile::Time start_ = std::chrono::steady_clock::now();
};

TEST_F(OpenedFileTest, TheFirstWriteLooks) {
  Move();
  EXPECT_FALSE(File().MayWrite(start_));
}

TEST_F(OpenedFileTest, WritesLookOnceASecond) {
  EXPECT_TRUE(File().MayWrite(start_));
  Move();
  EXPECT_TRUE(File().MayWrite(start_ + 999ms));
  EXPECT_NO_THROW(File().RequireForWrite(start_ + 999ms));
  EXPECT_FALSE(File().MayWrite(start_ + 1000ms));
  MoveBack();
  EXPECT_FALSE(File().MayWrite(start_ + 1999ms));
  EXPECT_THROW(File().RequireForWrite(start_ + 1999ms), RuntimeError);
  EXPECT_NO_THROW(File().RequireForWrite(start_ + 2000ms));
  Move();
  EXPECT_TRUE(File().MayWrite(start_ + 2999ms));
  EXPECT_THROW(File().RequireForWrite(start_ + 3000ms), RuntimeError);
}

TEST_F(OpenedFileTest, BeingAskedLooksAtOnceAndTellsTheWritesToo) {
  EXPECT_TRUE(File().MayWrite(start_));
  Move();
  EXPECT_THROW(File().Require(), RuntimeError);
  EXPECT_FALSE(File().MayWrite(start_ + 1ms));
  MoveBack();
  EXPECT_NO_THROW(File().Require());
  EXPECT_TRUE(File().MayWrite(start_ + 2ms));
}

TEST_F(OpenedFileTest, BeingAskedPutsOffNoLookOfTheWrites) {
  EXPECT_TRUE(File().MayWrite(start_));
  EXPECT_NO_THROW(File().Require());
  Move();
  EXPECT_FALSE(File().MayWrite(start_ + 1000ms));
}

}  // namespace
}  // namespace quorvane::sqlite
