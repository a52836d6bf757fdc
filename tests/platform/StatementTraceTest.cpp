#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/data/StatementTrace.h"

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
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  std::filesystem::remove(path);
  return text.str();
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
  EXPECT_EXIT(work("/dev/full"), testing::ExitedWithCode(0),
              "^No se puede escribir la traza /dev/full: compruebe su carpeta y que queda espacio "
              "en el disco\n");
  EXPECT_EXIT(work("/no/hay"), testing::ExitedWithCode(0),
              "^No se puede escribir la traza /no/hay: compruebe su carpeta y que queda espacio en "
              "el disco\n");
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

}  // namespace
}  // namespace quorvane::test
