#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <sys/wait.h>

#include "tests/salida/Desktop.h"
#include "tests/salida/Process.h"
#include "tests/salida/SessionManager.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

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

  /// From the start page into the form with the grades of the section, which takes its locks.
  void OpenGrades() {
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
  Start();
  OpenGrades();
  program_->Signal(GetParam());
  // One who asks twice gets the same.
  program_->Signal(GetParam());
  ExpectEnd(GetParam());
}

INSTANTIATE_TEST_SUITE_P(All, RealProgramSignalsTest, testing::Values(SIGHUP, SIGINT, SIGTERM));

TEST_F(RealProgramTest, LivesOnWhenItsTerminalGoesButTheHangUpIsIgnored) {
  Start({SIGHUP});
  OpenGrades();
  program_->Signal(SIGHUP);
  // An answer shows that it lives.
  EXPECT_TRUE(manager_.AskToSave());
  EXPECT_EQ(Held(), 2);
  program_->Signal(SIGTERM);
  ExpectEnd(SIGTERM);
}

TEST_F(RealProgramTest, EndsInOrderAtLogOut) {
  Start();
  OpenGrades();
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
  Start();
  OpenGrades();
  ASSERT_TRUE(manager_.AskToSave());
  manager_.CallOff();
  EXPECT_TRUE(desktop_.Shows(kStepTwoTitle));
  EXPECT_EQ(Held(), 2);
  ASSERT_TRUE(manager_.AskToSave());
  EXPECT_TRUE(manager_.AskToEnd());
  ExpectEnd();
}

TEST_F(RealProgramTest, EndsInOrderWhenTheTaskBarClosesItsWindowBehindAForm) {
  Start();
  OpenGrades();
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
