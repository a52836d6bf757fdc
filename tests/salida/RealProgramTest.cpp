#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "tests/salida/SessionManager.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/TempFolder.h"
#include "tests/teclado/XServer.h"

namespace quorvane::test {
namespace {

/// Waits for what another process brings about. False when it takes longer than any machine needs.
bool WaitUntil(const std::function<bool()>& done) {
  using namespace std::chrono_literals;
  constexpr auto kPatience = 30s;
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(20ms);
  }
  return true;
}

/// An X server with a window manager, and a user who has its keyboard and its task bar.
class Desktop {
 public:
  Desktop() {
    if (!WaitUntil([this] { return Run("wmctrl -m") == 0; }))
      throw std::runtime_error("no window manager");
  }

  /// The server's name, for DISPLAY.
  [[nodiscard]] const std::string& Display() const noexcept { return server_.Display(); }

  /// Waits until the window that has the keyboard bears that text in its title.
  [[nodiscard]] bool Shows(const std::string& title) const {
    return WaitUntil([this, &title] {
      return Run("sh -c 'xdotool getactivewindow getwindowname | grep -qF \"" + title + "\"'") == 0;
    });
  }
  /// Presses keys by their X names, parted by blanks.
  void Press(const std::string& keys) const {
    if (Run("xdotool key --clearmodifiers " + keys) != 0)
      throw std::runtime_error("no key: " + keys);
  }
  /// Closes the window with that text in its title as the task bar does.
  void Close(const std::string& title) const {
    if (Run("wmctrl -c '" + title + "'") != 0) throw std::runtime_error("no window: " + title);
  }

 private:
  [[nodiscard]] int Run(const std::string& command) const {
    return std::system(("DISPLAY=" + Display() + " " + command + " >/dev/null 2>&1").c_str());
  }

  XServer server_{true};
};

/// What a program starts with.
struct ProcessSetting {
  std::map<std::string, std::string> environment;  ///< what it has besides; empty texts unset
  std::vector<int> ignored;  ///< the signals that it ignores from its start, as under `nohup`
  std::string output;        ///< a file for both its outputs; nowhere when empty
};

/// A program in a process of its own, killed with the object if it still runs.
class Process {
 public:
  explicit Process(const std::vector<std::string>& words, const ProcessSetting& setting)
      : pid_(fork()) {
    if (pid_ < 0) throw std::runtime_error("no process");
    if (pid_ == 0) Become(words, setting);
  }
  ~Process() {
    if (Ended()) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  Process(Process&&) = delete;

  void Signal(int signal) const {
    if (!ended_) kill(pid_, signal);
  }
  /// How it has ended, as `waitpid` tells; none while it runs.
  [[nodiscard]] std::optional<int> Ended() {
    int status = 0;
    if (!ended_ && waitpid(pid_, &status, WNOHANG) == pid_) ended_ = status;
    return ended_;
  }

 private:
  [[noreturn]] static void Become(const std::vector<std::string>& words,
                                  const ProcessSetting& setting) {
    // Tests that are broken off leave no program behind.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto signal : {SIGHUP, SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
    for (const auto signal : setting.ignored) std::signal(signal, SIG_IGN);
    for (const auto& [name, value] : setting.environment)
      value.empty() ? unsetenv(name.c_str()) : setenv(name.c_str(), value.c_str(), 1);
    constexpr auto kMode = 0600;
    const auto* const file = setting.output.empty() ? "/dev/null" : setting.output.c_str();
    const auto output = open(file, O_WRONLY | O_CREAT | O_APPEND, kMode);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    std::vector<char*> arguments;
    for (const auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }

  pid_t pid_;
  std::optional<int> ended_;
};

constexpr auto kStartPage = "Ana Ruiz";
constexpr auto kStepOne = "Paso 1 de 2";
constexpr auto kStepTwoTitle = "Paso 2 de 2";

/// The program on a desktop, with the tutor of a section signed in who has a subject to grade.
class RealProgramTest : public testing::Test {
 protected:
  RealProgramTest() {
    school_.Sql("UPDATE Usuario SET Nombre='Ana Ruiz', CodPerfil=3 WHERE IDUsuario=2");
    school_.Registra(321, 1);
    school_.Evalua(school_.Pendiente(1, 3111, 1), 1);
  }

  void Start(const std::vector<int>& ignored = {}) {
    program_ = std::make_unique<Process>(
        std::vector<std::string>{ZENDRIA, school_.Path(), "--usuario", "2"},
        ProcessSetting{.environment = {{"DISPLAY", desktop_.Display()},
                                       {"SESSION_MANAGER", manager_.Address()},
                                       {"XDG_CONFIG_HOME", folder_ / "config"},
                                       {"XDG_RUNTIME_DIR", folder_ / "config"},
                                       {"QT_QPA_PLATFORM", "xcb"},
                                       {"QUORVANE_TRAZA", ""}},
                       .ignored = ignored,
                       .output = folder_ / "salida"});
    ASSERT_TRUE(manager_.HasProgram());
    ASSERT_TRUE(desktop_.Shows(kStartPage));
  }

  /// And from its start page into the form with the grades of the section, which takes its locks.
  void StartGrading(const std::vector<int>& ignored = {}) {
    Start(ignored);
    desktop_.Press("Down Down Return");
    ASSERT_TRUE(desktop_.Shows(kStepOne));
    desktop_.Press("Tab 2 Tab a Tab 1 Return");
    ASSERT_TRUE(desktop_.Shows(kStepTwoTitle));
    ASSERT_TRUE(WaitUntil([this] { return Held() == 2; }));
  }

  /// The rows that an open form has in the school.
  [[nodiscard]] int Held() const {
    return school_.Numero(
        "SELECT (SELECT COUNT(*) FROM PublicacionPte) + (SELECT COUNT(*) FROM BloqueoPte)");
  }

  /// Holds that the program ends, by that signal or else with status 0, and keeps nothing.
  void ExpectEnd(int signal = 0) {
    ASSERT_TRUE(WaitUntil([this] { return program_->Ended().has_value(); }));
    const auto ended = *program_->Ended();
    EXPECT_EQ(WIFSIGNALED(ended) ? WTERMSIG(ended) : 0, signal);
    EXPECT_TRUE(WIFSIGNALED(ended) || WEXITSTATUS(ended) == 0) << WEXITSTATUS(ended);
    EXPECT_EQ(Held(), 0);
    std::string printed;
    std::getline(std::ifstream(folder_ / "salida"), printed);
    EXPECT_EQ(printed, "");
  }

  SmallSchool school_;
  TempFolder folder_;
  Desktop desktop_;
  SessionManager manager_;
  std::unique_ptr<Process> program_;
};

class RealProgramSignalsTest : public RealProgramTest, public testing::WithParamInterface<int> {};

TEST_P(RealProgramSignalsTest, EndItOnTheStartPage) {
  Start();
  program_->Signal(GetParam());
  ExpectEnd(GetParam());
}

TEST_P(RealProgramSignalsTest, EndItInOrderWithTheGradesOpen) {
  StartGrading();
  program_->Signal(GetParam());
  // One who asks twice gets the same.
  program_->Signal(GetParam());
  ExpectEnd(GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, RealProgramSignalsTest, testing::Values(SIGHUP, SIGINT, SIGTERM));

TEST_F(RealProgramTest, LivesOnWhenItsTerminalGoesButTheHangUpIsIgnored) {
  StartGrading({SIGHUP});
  program_->Signal(SIGHUP);
  // An answer shows that it lives.
  EXPECT_TRUE(manager_.AskToSave());
  EXPECT_EQ(Held(), 2);
  program_->Signal(SIGTERM);
  ExpectEnd(SIGTERM);
}

TEST_F(RealProgramTest, EndsInOrderAtLogOut) {
  StartGrading();
  ASSERT_TRUE(manager_.AskToSave());
  EXPECT_TRUE(manager_.AskToEnd());
  EXPECT_FALSE(manager_.WasAskedForUser());
  ExpectEnd();
}

TEST_F(RealProgramTest, EndsAtLogOutOnTheStartPage) {
  Start();
  ASSERT_TRUE(manager_.AskToSave());
  EXPECT_TRUE(manager_.AskToEnd());
  ExpectEnd();
}

TEST_F(RealProgramTest, KeepsTheFormWhenTheLogOutIsCalledOff) {
  StartGrading();
  ASSERT_TRUE(manager_.AskToSave());
  manager_.CallOff();
  EXPECT_TRUE(desktop_.Shows(kStepTwoTitle));
  EXPECT_EQ(Held(), 2);
  ASSERT_TRUE(manager_.AskToSave());
  EXPECT_TRUE(manager_.AskToEnd());
  ExpectEnd();
}

TEST_F(RealProgramTest, EndsInOrderWhenTheTaskBarClosesItsWindowBehindAForm) {
  StartGrading();
  desktop_.Close(kStartPage);
  ExpectEnd();
}

TEST_F(RealProgramTest, EndsWhenTheTaskBarClosesItsWindowBehindADialogOfItsOwn) {
  Start();
  desktop_.Press("ctrl+b");
  ASSERT_TRUE(desktop_.Shows("Publicaciones y bloqueos"));
  desktop_.Close(kStartPage);
  ExpectEnd();
}

}  // namespace
}  // namespace quorvane::test
