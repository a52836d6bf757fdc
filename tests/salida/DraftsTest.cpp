// However the program ends, what was typed and isn't saved is offered again.

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>

#include "tests/salida/SessionTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

constexpr std::uint8_t kByStudentNode = 124;
constexpr auto kCounts = "QUORVANE_CUENTA";

using Window = qt::FormWindow;

void ChooseTheClass(Robot& user) {
  user.On("frmNotaManual1", [](Window& window) {
    Robot::Pick(window, "cboCursos", "2");
    Robot::Pick(window, "cboSecciones", "A");
    Robot::Pick(window, "cboEvaluaciones", "1");
    Robot::Click(window, "cmdNotaManual1(0)");
  });
}

/// A grade is typed by student; then he rests, and saves.
Session Typing() {
  Session session{.name = "notas", .arguments = {"--usuario", "2"}};
  session.prepare = [](Robot& user) {
    ChooseTheClass(user);
    user.On("frmNotaManual", [](Window& window) {
      Robot::Grade(window, 0, 1, "7");
      std::ofstream(std::getenv(kCounts)) << StatementsSoFar() << ' ';
      if (AtRest()) return;
      Robot::Click(window, "cmdAceptar");
    });
    user.On("frmNotaManual1", {"cmdNotaManual1(1)"});
  };
  session.begin = [](zendria::MainWindow& window) {
    window.OpenNode(kByStudentNode);
    std::ofstream(std::getenv(kCounts), std::ios::app) << StatementsSoFar();
  };
  return session;
}

/// The next day: what is offered is put in, and saved.
Session Again() {
  auto session = Typing();
  session.prepare = [](Robot& user) {
    ChooseTheClass(user);
    user.OnDialog("borrador", [](QWidget& dialog) {
      QTest::mouseClick(dialog.findChild<QWidget*>("ponerlas"), Qt::LeftButton);
    });
    user.On("frmNotaManual", {"cmdAceptar"});
    user.On("frmNotaManual1", {"cmdNotaManual1(1)"});
  };
  session.begin = [](zendria::MainWindow& window) { window.OpenNode(kByStudentNode); };
  return session;
}

class DraftsTest : public SessionTest {
 protected:
  DraftsTest() { setenv(kCounts, (counts_ / "cuenta").c_str(), 1); }
  ~DraftsTest() override { unsetenv(kCounts); }

  [[nodiscard]] int Saved() const {
    return school_.Numero("SELECT COUNT(*) FROM EvaluacionPte WHERE CodNota=107");
  }
  void Afresh() const {
    school_.Sql(
        "DELETE FROM BloqueoPte; DELETE FROM PublicacionPte; UPDATE EvaluacionPte SET CodNota=0");
  }
  /// Breaks the session off then, and holds that the next one ends with the grade in the school if
  /// it was typed, whether or not it had been saved; none tells that it may have been either.
  void BreakOff(const Moment& moment, std::optional<bool> typed) {
    SCOPED_TRACE("kind " + std::to_string(static_cast<int>(moment.kind)) + ", number " +
                 std::to_string(moment.number) + ", signal " + std::to_string(moment.signal));
    Afresh();
    const TempFolder folder;
    const auto broken = PlayIn(folder, Typing(), school_.Path(), moment);
    EXPECT_EQ(broken.signal, moment.signal) << broken.errors;
    const auto kept = Saved() == 1 || broken.rescued.find("\"dato\": 107") != std::string::npos;
    EXPECT_EQ(kept, typed.value_or(kept));
    school_.Sql("DELETE FROM BloqueoPte; DELETE FROM PublicacionPte");
    const auto again = PlayIn(folder, Again(), school_.Path());
    EXPECT_EQ(again.status, 0) << again.errors;
    EXPECT_EQ(Saved(), kept ? 1 : 0);
    EXPECT_THAT(again.rescued, Not(HasSubstr("dato"))) << "the draft goes with the save";
  }

  TempFolder counts_;
};

TEST_F(DraftsTest, AreFoundRightAfterEachSignalAndAfterADeath) {
  const auto undisturbed = Play(Typing(), school_.Path());
  ASSERT_EQ(undisturbed.status, 0) << undisturbed.errors;
  ASSERT_EQ(Saved(), 1);
  int typedAt = 0;
  int all = 0;
  std::ifstream(counts_ / "cuenta") >> typedAt >> all;
  ASSERT_GT(typedAt, 0);
  ASSERT_GT(all, typedAt + 4);
  const auto at = [](int statement, int signal) {
    return Moment{Moment::Kind::Statement, statement, signal};
  };
  BreakOff(at(typedAt, SIGKILL), false);
  // He types on until the program hears of it.
  BreakOff(at(typedAt - 1, SIGTERM), std::nullopt);
  BreakOff({Moment::Kind::Rest, 1, SIGKILL}, true);
  BreakOff({Moment::Kind::Rest, 1, SIGTERM}, true);
  // From the first statement of the save to its last.
  const auto save = all - typedAt;
  std::size_t turn = 0;
  for (const auto signal : {SIGKILL, SIGINT, SIGKILL, SIGHUP, SIGKILL, SIGTERM, SIGKILL})
    BreakOff(at(typedAt + 1 + static_cast<int>(turn++) * (save - 1) / 6, signal), true);
}

}  // namespace
}  // namespace quorvane::test
