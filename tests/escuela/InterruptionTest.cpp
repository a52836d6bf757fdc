// A tool that is told to end while it writes a school.

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>

#include "apps/escuela/SchoolAddress.h"
#include "tests/escuela/Tool.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

/// Until no signal that was sent to it waits: two of one kind that wait are one.
void AwaitDelivery(pid_t process) {
  const std::string pending = "ShdPnd:\t";
  for (auto left = 10'000; left > 0; --left) {
    std::ifstream state("/proc/" + std::to_string(process) + "/status");
    auto waits = false;
    for (std::string line; std::getline(state, line);)
      if (line.starts_with(pending))
        waits = line.find_first_not_of('0', pending.size()) != std::string::npos;
    if (!waits) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

/// How many reports of that folder are whole.
std::ptrdiff_t WholeReports(const std::string& folder) {
  std::error_code error;
  return std::count_if(std::filesystem::directory_iterator(folder, error), {},
                       [](const auto& file) { return file.path().extension() == ".html"; });
}

class InterruptionTest : public testing::Test {
 protected:
  /// That so much is written.
  [[nodiscard]] std::function<bool()> Written(std::uintmax_t size) const {
    return [this, size] {
      std::error_code error;
      for (const auto& file : std::filesystem::directory_iterator(folder_ / "", error))
        if (file.path().filename().string().starts_with(".parcial-")) {
          const auto bytes = std::filesystem::file_size(file.path(), error);
          if (!error && bytes >= size) return true;
        }
      return false;
    };
  }

  /// Sends the signals one after the other once that is so, or all is done. While it is asked
  /// whether it still is, the tool stands: a signal that comes when the work is over, and the tool
  /// ends, would kill it beside a whole school.
  int StopOnce(std::vector<std::string> arguments, const std::vector<int>& signals,
               const std::function<bool()>& come) {
    arguments.insert(arguments.begin(), QUORVANE_ESCUELA);
    const auto process = StartQuietly(arguments);
    auto status = 0;
    while (waitpid(process, &status, WNOHANG) != process) {
      if (!come()) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
        continue;
      }
      kill(process, SIGSTOP);
      waitpid(process, &status, WUNTRACED);
      if (!WIFSTOPPED(status)) return status;
      const auto send = come();
      if (send) kill(process, signals.front());
      kill(process, SIGCONT);
      for (std::size_t i = 1; send && i < signals.size(); ++i) {
        AwaitDelivery(process);
        kill(process, signals[i]);
      }
      waitpid(process, &status, 0);
      return status;
    }
    return status;
  }

  /// Ended by the signal with nothing left, or too late, with the whole school. A second signal
  /// ends also what the first came too late for.
  void ExpectAllOrNothing(int status, int number, bool& stopped, bool twice = false) {
    const auto whole = folder_.Files() == 1U && std::filesystem::exists(path_);
    if (WIFSIGNALED(status)) {
      EXPECT_EQ(WTERMSIG(status), number);
      EXPECT_TRUE(folder_.Files() == 0U || (twice && whole)) << folder_.Files();
      if (!whole) stopped = true;
    } else {
      EXPECT_EQ(WEXITSTATUS(status), 0);
      EXPECT_TRUE(whole) << folder_.Files();
    }
    std::filesystem::remove(path_);
  }

  /// A tool may be done each time before the test is given the processor.
  static constexpr auto kMostRounds = 30;

  TempFolder origin_;
  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
};

TEST_F(InterruptionTest, EverySignalAtEveryStageLeavesNothing) {
  const auto from = origin_ / "origen.sqlite";
  ASSERT_EQ(Escuela("generar --alumnos 300 --semilla 1 " + from).status, 0);
  const std::vector<std::vector<std::string>> commands = {
      {"generar", "--alumnos", "300", "--semilla", "1", path_},
      {"copiar", from, path_},
      {"demo", path_},
      {"crear", path_}};
  for (const auto& command : commands) {
    auto stopped = false;
    for (auto round = 0; round < kMostRounds && !stopped; ++round)
      for (const auto number : kEndingSignals)
        for (const auto size : {0U, 1U, 100'000U}) {
          SCOPED_TRACE(command.front() + " " + strsignal(number) + " " + std::to_string(size));
          ExpectAllOrNothing(StopOnce(command, {number}, Written(size)), number, stopped);
        }
    EXPECT_TRUE(stopped) << command.front();
  }
}

TEST_F(InterruptionTest, ASecondSignalLeavesNothingEither) {
  auto stopped = false;
  for (auto round = 0; round < kMostRounds && !stopped; ++round)
    for (const auto number : kEndingSignals)
      ExpectAllOrNothing(StopOnce({"generar", "--alumnos", "300", "--semilla", "1", path_},
                                  {number, number}, Written(0)),
                         number, stopped, true);
  EXPECT_TRUE(stopped);
}

// What changes a school leaves it, and the folder, as they were, or has done all of it.
TEST_F(InterruptionTest, WhatChangesASchoolOrTellsOfItIsWholeOrUndone) {
  const auto from = origin_ / "origen.sqlite";
  ASSERT_EQ(Escuela("demo " + from).status, 0);
  const auto list = origin_ / "registro.csv";
  std::ofstream(list) << "alumno;sección;materia;curso;evaluaciones;profesor\n"
                         "32;3º ESO A;Matemáticas;2º ESO B;todas;\n"
                         "37;3º ESO B;Música;2º ESO B;todas;\n";
  const auto broken = origin_ / "rota.sqlite";
  std::filesystem::copy_file(from, broken);
  {
    const auto school = SchoolAddress::File(broken).Open("");
    school->Execute("DELETE FROM PublicacionPte");
    school->Execute("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  }
  const auto content = [this] {
    std::string text;
    const auto school = SchoolAddress::File(path_).Open("");
    for (const std::string table : {"AlumnoPte_MatDet", "EvaluacionPte", "Seccion_AlumnoPte"})
      text += school->Execute("SELECT COUNT(*) FROM " + table).Fields(0).Text() + " ";
    return text;
  };
  const auto reports = folder_ / "informes/de/hoy";
  const auto whole = origin_ / "informes";
  ASSERT_EQ(Escuela("informe " + from + " --todas --salida " + whole).status, 0);
  const auto all = WholeReports(whole);
  struct Order {
    std::string school;
    std::vector<std::string> arguments;
    std::function<bool()> come;
    std::size_t files;  ///< that it adds
  };
  const std::vector<Order> orders = {
      {broken, {"reparar", path_}, Written(0), 1},
      {broken, {"reparar", path_}, Written(50'000), 1},
      {from, {"importar", path_, list}, [&] { return std::filesystem::exists(path_ + "-shm"); }, 0},
      {from,
       {"informe", path_, "--todas", "--salida", reports},
       [&] { return std::filesystem::exists(reports) && WholeReports(reports) < all; },
       1}};
  for (const auto& order : orders) {
    auto stopped = false;
    for (auto round = 0; round < kMostRounds && !stopped; ++round)
      for (const auto number : kEndingSignals) {
        SCOPED_TRACE(order.arguments.front() + " " + strsignal(number));
        std::filesystem::copy_file(order.school, path_);
        const auto before = content();
        const auto status = StopOnce(order.arguments, {number}, order.come);
        if (WIFSIGNALED(status)) {
          stopped = true;
          EXPECT_EQ(WTERMSIG(status), number);
          EXPECT_EQ(content(), before);
          EXPECT_EQ(folder_.Files(), 1U);
        } else {
          EXPECT_EQ(WEXITSTATUS(status), 0);
          EXPECT_EQ(folder_.Files(), 1U + order.files);
          EXPECT_EQ(content() == before, order.arguments.front() == "informe");
        }
        std::filesystem::remove_all(folder_ / "informes");
        for (const auto& file : std::filesystem::directory_iterator(folder_ / ""))
          std::filesystem::remove(file);
      }
    EXPECT_TRUE(stopped) << order.arguments.front();
  }
}

TEST_F(InterruptionTest, ASignalThatTheToolWasStartedWithoutEndsNothing) {
  const auto ended =
      RunCommand("sh -c 'trap \"\" HUP; " QUORVANE_ESCUELA " generar --alumnos 300 --semilla 1 " +
                 path_ + " & tool=$!; sleep 0.02; kill -HUP $tool; wait $tool'");
  EXPECT_EQ(ended.status, 0) << ended.text;
  EXPECT_EQ(folder_.Files(), 1U);
}

}  // namespace
}  // namespace quorvane::test
