// A tool that is told to end at a chosen call of the system, and once more while it ends.

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/UserPasswords.h"
#include "tests/escuela/Tool.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;

// Newer machines have the more general calls alone.
#ifdef __NR_link
const std::vector<long> kName = {__NR_link, __NR_linkat};
const std::vector<long> kRemove = {__NR_unlink, __NR_unlinkat};
#else
const std::vector<long> kName = {__NR_linkat};
const std::vector<long> kRemove = {__NR_unlinkat};
#endif
const std::vector<long> kWrite = {__NR_write, __NR_writev};

/// A tool that runs from one of its calls of the system to the next that is asked for, so that a
/// signal reaches it there and nowhere else. Killed with the object where it hasn't ended.
class ToolInSteps {
 public:
  /// Whether this machine lets a process follow another's calls: some containers don't.
  static bool IsAllowed() {
    ToolInSteps tool({"/bin/true"});
    __ptrace_syscall_info call{};
    return tool.Step(0) && ptrace(PTRACE_GET_SYSCALL_INFO, tool.process_, sizeof(call), &call) > 0;
  }

  /// The program and its arguments. It stands before its first call.
  explicit ToolInSteps(const std::vector<std::string>& arguments)
      : process_(StartQuietly(arguments, [] {
          if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(126);
          std::raise(SIGSTOP);
        })) {
    Wait();
    if (!ended_)
      ptrace(PTRACE_SETOPTIONS, process_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  }
  ~ToolInSteps() {
    if (ended_) return;
    kill(process_, SIGKILL);
    Wait();
  }
  ToolInSteps(ToolInSteps&&) = delete;

  /// Goes on to where it is about to make one of these calls, by their numbers (`__NR_...`); with
  /// `path`, to one that is given a path with that part. False when it has ended before.
  bool RunTo(const std::vector<long>& calls, const std::string& path = {}) {
    while (!ended_ && Step(pending_)) {
      constexpr auto kCallStop = SIGTRAP | 0x80;
      const auto stop = WSTOPSIG(status_);
      // The program's own beginning looks like a signal.
      pending_ = stop == kCallStop || stop == SIGTRAP ? 0 : stop;
      if (stop != kCallStop) continue;
      __ptrace_syscall_info call{};
      ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof(call), &call);
      if (call.op != PTRACE_SYSCALL_INFO_ENTRY) continue;
      const auto number = static_cast<long>(call.entry.nr);
      if (std::find(calls.begin(), calls.end(), number) == calls.end()) continue;
      if (path.empty() || TextAt(call.entry.args[0]).find(path) != std::string::npos ||
          TextAt(call.entry.args[1]).find(path) != std::string::npos)
        return true;
    }
    return false;
  }
  /// Sends a signal, and lets its handler end.
  void Interrupt(int number) {
    kill(process_, number);
    RunTo({__NR_rt_sigreturn});
  }
  /// Lets it run to its end; the status as of `waitpid`.
  int Finish() {
    if (!ended_) {
      ptrace(PTRACE_DETACH, process_, nullptr, pending_);
      Wait();
    }
    return status_;
  }

 private:
  void Wait() {
    waitpid(process_, &status_, 0);
    ended_ = !WIFSTOPPED(status_);
  }
  bool Step(int signal) {
    ptrace(PTRACE_SYSCALL, process_, nullptr, signal);
    Wait();
    return !ended_;
  }
  [[nodiscard]] std::string TextAt(unsigned long address) const {
    std::string text;
    std::array<char, 1> letter{};
    const iovec here{letter.data(), letter.size()};
    // A byte at a time: what follows the text may not be there.
    for (constexpr std::size_t kMost = 4096; text.size() < kMost; ++address) {
      // NOLINTNEXTLINE(performance-no-int-to-ptr): it is the other process's.
      const iovec there{reinterpret_cast<void*>(address), letter.size()};
      if (process_vm_readv(process_, &here, 1, &there, 1, 0) != 1 || letter[0] == '\0') break;
      text += letter[0];
    }
    return text;
  }

  pid_t process_;
  int status_ = 0;
  bool ended_ = false;
  int pending_ = 0;  ///< a signal that it stopped at, and hasn't had yet
};

/// Where a signal comes, and whether what was asked for is done then.
struct Stage {
  const char* name;
  std::vector<long> calls;
  const char* path;
  bool late = false;
  const char* after = nullptr;  ///< to be opened before
};

class InterruptedStepsTest : public testing::Test {
 protected:
  InterruptedStepsTest() {
    EXPECT_EQ(Escuela("demo " + from_).status, 0);
    UserPasswords(*SchoolAddress::File(from_).Open("")).Set(2, "alcachofas con jamón");
    fs::create_directory(work_);
  }
  void SetUp() override {
    if (!ToolInSteps::IsAllowed()) GTEST_SKIP() << "Here no process may follow another's calls";
  }

  /// All files of the folder, and how many rows the school's tables have that the orders change.
  [[nodiscard]] std::string Content() const {
    std::string text;
    {
      const auto school = SchoolAddress::File(school_).Open("");
      for (const auto* const from :
           {"PublicacionPte", "BloqueoPte", "sqlite_master", "AlumnoPte_MatDet"})
        text += school->Execute(std::string("SELECT COUNT(*) FROM ") + from).Fields(0).Text() + ' ';
    }
    for (const auto& file : fs::recursive_directory_iterator(work_))
      text += file.path().string() + ' ';
    return text;
  }

  /// The signals reach the tool at that stage: the second while it undoes its work.
  void Expect(const std::vector<std::string>& arguments, const Stage& stage, int number,
              std::optional<int> second) {
    SCOPED_TRACE(arguments[1] + ", " + stage.name + ", " + strsignal(number) +
                 (second ? std::string(" and ") + strsignal(*second) : ""));
    fs::remove_all(work_);
    fs::create_directory(work_);
    fs::copy_file(from_, school_);
    const auto before = Content();
    ToolInSteps tool(arguments);
    if (stage.after != nullptr) {
      ASSERT_TRUE(tool.RunTo({__NR_openat}, stage.after));
    }
    ASSERT_TRUE(tool.RunTo(stage.calls, stage.path));
    tool.Interrupt(number);
    if (second) tool.Interrupt(*second);
    const auto status = tool.Finish();
    const auto after = Content();
    if (stage.late && !second) {
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
      EXPECT_NE(after, before);
    } else {
      EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == second.value_or(number)) << status;
      // The second leaves no time but for the file that is being written.
      if (!stage.late && (!second || arguments[3] != "--todas")) {
        EXPECT_EQ(after, before);
      }
    }
    for (const auto& file : fs::recursive_directory_iterator(work_))
      EXPECT_FALSE(file.path().filename().string().starts_with(".parcial-")) << file.path();
  }

  void ExpectAll(std::vector<std::string> arguments, const std::vector<Stage>& stages) {
    arguments.insert(arguments.begin(), QUORVANE_ESCUELA);
    for (const auto& stage : stages)
      for (const auto number : kEndingSignals) {
        Expect(arguments, stage, number, std::nullopt);
        Expect(arguments, stage, number, number == SIGTERM ? SIGINT : SIGTERM);
      }
  }

  TempFolder folder_;
  std::string from_ = folder_ / "origen.sqlite";
  std::string work_ = folder_ / "trabajo";
  std::string school_ = work_ + "/escuela.sqlite";
};

TEST_F(InterruptedStepsTest, AReportIsWholeOrNotThere) {
  const std::vector<Stage> stages = {{"opening", {__NR_openat}, "escuela.sqlite"},
                                     {"making the file", {__NR_openat}, ".parcial-"},
                                     {"writing it", kWrite, "", false, ".parcial-"},
                                     {"naming it", kName, ".parcial-", true},
                                     {"it is named", kRemove, ".parcial-", true}};
  ExpectAll({"informe", school_, "--seccion", "5", "--salida", work_ + "/informe.html"}, stages);
  ExpectAll({"informe", school_, "--seccion", "5", "--en-blanco", "--salida", work_ + "/a.csv"},
            {stages[1]});
  const auto all = work_ + "/uno/dos";
  ExpectAll({"informe", school_, "--todas", "--salida", all},
            {stages[1], {"naming the first", kName, "3º ESO A"}, {"naming the last", kName, "4º"}});
}

TEST_F(InterruptedStepsTest, WhatChangesASchoolIsDoneOrNot) {
  const std::vector<Stage> stages = {{"opening", {__NR_openat}, "escuela.sqlite"},
                                     {"opening its log", {__NR_openat}, "-shm"},
                                     {"writing", {__NR_fsync, __NR_fdatasync}, "", true}};
  ExpectAll({"historial", school_, "activar"}, stages);
  ExpectAll({"bloqueos", school_, "--borrar", "1"}, stages);
  ExpectAll({"usuarios", school_, "quitar", "2"}, stages);
  const auto list = folder_ / "registro.csv";
  std::ofstream(list) << "alumno;sección;materia;curso;evaluaciones;profesor\n"
                         "32;3º ESO A;Matemáticas;2º ESO B;todas;\n";
  ExpectAll({"importar", school_, list}, stages);
  ExpectAll({"reparar", school_, "--con-publicaciones"}, {stages[0], stages[1]});
}

}  // namespace
}  // namespace quorvane::test
