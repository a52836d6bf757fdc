#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/data/TraceFile.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class TraceFileTest : public testing::Test {
 protected:
  void MakePipe() const { ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0); }

  TempFolder folder_;
  std::string path_ = folder_ / "traza";
};

TEST_F(TraceFileTest, IsItsOwnersAlone) {
  const auto before = umask(0);
  { EXPECT_TRUE(TraceFile(path_.c_str()).Append("a\n")); }
  umask(before);
  struct stat status {};
  ASSERT_EQ(stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  EXPECT_EQ(status.st_size, 2);
}

TEST_F(TraceFileTest, APipeThatNobodyReadsIsNotWaitedFor) {
  MakePipe();
  EXPECT_FALSE(TraceFile(path_.c_str()).IsOpen());
}

TEST_F(TraceFileTest, APipeWhoseReaderHasGoneEndsNobody) {
  MakePipe();
  const auto reader = open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  const TraceFile trace(path_.c_str());
  EXPECT_TRUE(trace.Append("a\n"));
  close(reader);
  EXPECT_FALSE(trace.Append("b\n"));
  EXPECT_FALSE(trace.Append("c\n"));
}

TEST_F(TraceFileTest, APipeThatIsFullIsNotWaitedFor) {
  MakePipe();
  const auto reader = open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  const TraceFile trace(path_.c_str());
  auto lines = 0;
  while (lines < 1000 && trace.Append(std::string(4096, 'a'))) ++lines;
  EXPECT_GT(lines, 0);
  EXPECT_LT(lines, 1000);
  close(reader);
}

TEST_F(TraceFileTest, WhatCantBeWrittenFails) {
  EXPECT_FALSE(TraceFile("/dev/full").Append("a\n"));
  EXPECT_FALSE(TraceFile((folder_ / "no/hay").c_str()).IsOpen());
}

}  // namespace
}  // namespace quorvane::test
