#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <future>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

#include "platform/data/StatementTrace.h"
#include "platform/data/TraceFile.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

constexpr const char* kPath = "QUORVANE_TEST_TRACE_FILE";

/// What a process of its own, asked to trace, writes: the file is opened once a process. That
/// process runs the test again up to here, and so finds the path in its environment.
std::string TracedBy(void (*work)()) {
  const auto name = "quorvane-traza-" + std::to_string(getpid());
  setenv(kPath, (std::filesystem::temp_directory_path() / name).c_str(), 0);
  const std::filesystem::path path = getenv(kPath);
  const auto program = [&path, work] {
    setenv("QUORVANE_TRAZA", path.c_str(), 1);
    work();
    std::_Exit(0);
  };
  EXPECT_EXIT(program(), testing::ExitedWithCode(0), "");
  unsetenv(kPath);
  auto text = Content(path);
  std::filesystem::remove(path);
  return text;
}

TEST(StatementTraceTest, AppendsALineAStatement) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EQ(TracedBy([] {
              StatementTrace::Write("centro", "SELECT 1");
              StatementTrace::Write("borrado", " SELECT  2 ");
            }),
            "sql centro SELECT 1\nsql borrado  SELECT  2 \n");
}

TEST(StatementTraceTest, WhereThereIsNoRoomThatIsToldOnce) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto work = [](const char* path) {
    setenv("QUORVANE_TRAZA", path, 1);
    StatementTrace::Write("centro", "uno");
    StatementTrace::Write("centro", "dos");
    std::exit(0);
  };
  for (const std::string path : {"/dev/full", "/no/hay"})
    EXPECT_EXIT(work(path.c_str()), testing::ExitedWithCode(0),
                "^No se puede escribir la traza " + path +
                    ": compruebe su carpeta y que queda espacio en el disco\n");
}

TEST(StatementTraceTest, IsSilentWhileASilenceLives) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EQ(TracedBy([] {
              {
                const StatementTrace::Silence outer;
                { const StatementTrace::Silence inner; }
                StatementTrace::Write("centro", "uno");
              }
              StatementTrace::Write("centro", "dos");
            }),
            "sql centro dos\n");
}

TEST(StatementTraceTest, KeepsLongLinesWholeWhenTwoProcessesWrite) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto traced = TracedBy([] {
    const auto other = fork();
    for (int i = 0; i < 200; ++i)
      StatementTrace::Write("centro", std::string(10'000, other == 0 ? 'b' : 'a'));
    if (other == 0) std::_Exit(0);
    waitpid(other, nullptr, 0);
  });
  std::map<std::string, int> times;
  std::istringstream lines(traced);
  for (std::string line; std::getline(lines, line);) ++times[line];
  const std::string begin = "sql centro ";
  EXPECT_EQ(times, (std::map<std::string, int>{{begin + std::string(10'000, 'a'), 200},
                                               {begin + std::string(10'000, 'b'), 200}}));
}

class TraceFileTest : public testing::Test {
 protected:
  void MakePipe() const { ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0); }

  /// The end that reads the pipe.
  [[nodiscard]] int Reader() const {
    return open(path_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  }

  /// To its end, with a rest between reads.
  static std::string ReadSlowly(int reader) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (;;) {
      const auto count = read(reader, buffer.data(), buffer.size());
      if (count <= 0) break;
      text.append(buffer.data(), static_cast<std::size_t>(count));
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    close(reader);
    return text;
  }

  static std::string Repeated(const std::string& line, int times) {
    std::string text;
    for (auto i = 0; i < times; ++i) text += line;
    return text;
  }

  /// What is traced to `path` much faster than it is read, by `reader`, which it is for to close.
  static void ExpectEveryLine(int reader, const std::string& path, std::size_t length,
                              int lines = 2000) {
    const auto line = std::string(length - 1, 'a') + "\n";
    std::future<std::string> text;
    {
      TraceFile trace(path.c_str());
      ASSERT_TRUE(trace.IsOpen());
      text = std::async(std::launch::async, ReadSlowly, reader);
      for (auto i = 0; i < lines; ++i) ASSERT_TRUE(trace.Append(line)) << i;
    }
    const auto got = text.get();
    EXPECT_TRUE(got == Repeated(line, lines)) << got.size();
  }

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
  const TraceFile trace(path_.c_str());
  EXPECT_FALSE(trace.IsOpen());
  EXPECT_TRUE(trace.Unread());
}

TEST_F(TraceFileTest, APipeWhoseReaderHasGoneEndsNobody) {
  MakePipe();
  const auto reader = Reader();
  TraceFile trace(path_.c_str());
  EXPECT_TRUE(trace.Append("a\n"));
  close(reader);
  EXPECT_FALSE(trace.Append("b\n"));
  EXPECT_FALSE(trace.Append("c\n"));
  EXPECT_TRUE(trace.Unread());
}

TEST_F(TraceFileTest, APipeThatStaysFullIsWaitedForOnceAndEndsWithAWholeLine) {
  MakePipe();
  const auto reader = Reader();
  TraceFile trace(path_.c_str());
  const std::string line = std::string(999, 'a') + "\n";
  const auto begin = std::chrono::steady_clock::now();
  auto lines = 0;
  while (lines < 4000 && trace.Append(line)) ++lines;
  EXPECT_GE(std::chrono::steady_clock::now() - begin, TraceFile::kPatience);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 10 * TraceFile::kPatience);
  EXPECT_GT(lines, 0);
  EXPECT_LT(lines, 4000);
  EXPECT_TRUE(trace.Unread());
  EXPECT_EQ(ReadSlowly(reader), Repeated(line, lines));
}

TEST_F(TraceFileTest, ASlowReaderOfAPipeGetsEveryLine) {
  MakePipe();
  const auto reader = Reader();
  fcntl(reader, F_SETFL, 0);
  fcntl(reader, F_SETPIPE_SZ, 4096);
  ExpectEveryLine(reader, path_, 60);
}

TEST_F(TraceFileTest, ALineThatIsLongerThanAPipeArrivesWhole) {
  MakePipe();
  const auto reader = Reader();
  fcntl(reader, F_SETFL, 0);
  ExpectEveryLine(reader, path_, 100'000, 10);
}

TEST_F(TraceFileTest, ASlowTerminalGetsEveryLine) {
  const auto terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_EQ(grantpt(terminal), 0);
  ASSERT_EQ(unlockpt(terminal), 0);
  const std::string path = ptsname(terminal);
  const auto other = open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  termios raw{};
  tcgetattr(other, &raw);
  cfmakeraw(&raw);
  tcsetattr(other, TCSANOW, &raw);
  // Whoever holds it open would keep the reader waiting at the end.
  close(other);
  ExpectEveryLine(terminal, path, 60);
}

/// What is told while standard error leads to that descriptor, which is closed.
void TellInto(int errors, const std::string& text) {
  const auto before = dup(STDERR_FILENO);
  dup2(errors, STDERR_FILENO);
  close(errors);
  TraceFile::Tell(text);
  dup2(before, STDERR_FILENO);
  close(before);
}

TEST_F(TraceFileTest, TellsAPipeAndAFileThatTakeStandardError) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  TellInto(ends[1], "a\n");
  EXPECT_EQ(ReadSlowly(ends[0]), "a\n");
  TellInto(open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600), "b\n");
  EXPECT_EQ(ReadSlowly(open(path_.c_str(), O_RDONLY | O_CLOEXEC)), "b\n");
}

TEST_F(TraceFileTest, TellsNobodyWhoHasGone) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  close(ends[0]);
  TellInto(ends[1], "a\n");
}

TEST_F(TraceFileTest, WhatCantBeWrittenFails) {
  TraceFile full("/dev/full");
  EXPECT_FALSE(full.Append("a\n"));
  EXPECT_FALSE(full.Unread());
  const TraceFile nowhere((folder_ / "no/hay").c_str());
  EXPECT_FALSE(nowhere.IsOpen());
  EXPECT_FALSE(nowhere.Unread());
}

}  // namespace
}  // namespace quorvane::test
