#include <QCoreApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

#include "platform/RuntimeError.h"
#include "platform/host/MessageBox.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

/// What happens to both forms when the program is left, in one list.
class LeavingTest : public TwoFormsTest {
 protected:
  LeavingTest() {
    outer->OnUnload = Tells("fuera");
    inner->OnUnload = Tells("dentro");
    outer->cmdPagina.Click = [this] {
      inner->ShowModal();
      events.emplace_back("sigue");
    };
  }

  std::function<void()> Tells(const char* event) {
    return [this, event] { events.emplace_back(event); };
  }
  /// A failing handler, in a program that is left by then.
  std::function<void()> LeavesAndFails() {
    return [this] {
      screen.Leave();
      throw RuntimeError(ErrorNumber::StatementFailed, "fallo");
    };
  }
  Gesture Leave() {
    return [this](auto&) { screen.Leave(); };
  }
  /// Opens the inner form from the outer one, and leaves the program from its window.
  void LeaveFromInner() {
    Then("cmdPagina");
    Then(Leave());
  }

  [[nodiscard]] std::string Failures() const {
    std::string texts;
    for (const auto& failure : screen.LeavingFailures()) {
      try {
        std::rethrow_exception(failure);
      } catch (const std::exception& error) {
        texts += std::string(texts.empty() ? "" : ", ") + error.what();
      }
    }
    return texts;
  }

  std::vector<std::string> events;
};

TEST_F(LeavingTest, TheFormsAreUnloadedFromTheInnermostOut) {
  LeaveFromInner();
  Show(*outer);
  // What stands behind the opening of a form goes on before its own form goes.
  EXPECT_THAT(events, ElementsAre("dentro", "sigue", "fuera"));
  EXPECT_FALSE(outer->Loaded());
  EXPECT_EQ(Failures(), "");
}

TEST_F(LeavingTest, NothingHappensWithoutAForm) {
  screen.Leave();
  EXPECT_TRUE(screen.Leaving());
}

TEST_F(LeavingTest, AFormHiddenBehindTheOpenOneIsUnloaded) {
  HideOuterBehindInner();
  LeaveFromInner();
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("dentro", "fuera"));
}

TEST_F(LeavingTest, FormsThatTakeTurnsAreUnloadedOnce) {
  TakeTurns();
  Then("cmdPagina");
  Then("cmdAceptar");
  LeaveFromInner();
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("dentro", "dentro", "fuera"));
}

TEST_F(LeavingTest, AFormWhoseTurnItWouldBeIsNotLoadedAnew) {
  TakeTurns();
  inner->cmdAceptar.Click = [this] {
    inner->Unload();
    outer->ShowInTurn();
    screen.Leave();
  };
  Then("cmdPagina");
  Then("cmdAceptar");
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("dentro", "fuera"));
  EXPECT_FALSE(outer->Loaded());
}

TEST_F(LeavingTest, AFormThatIsShownTwiceIsUnloadedOnce) {
  HideOuterBehindInner();
  for (int round = 0; round < 2; ++round) {
    Then("cmdPagina");
    Then("cmdAceptar");
  }
  Then([this](auto&) { events.clear(); }, Leave());
  Show(*outer);
  EXPECT_THAT(events, ElementsAre("fuera"));
}

/// A form whose loading takes as long as to paint meanwhile.
class frmLenta : public frmPrueba {
 public:
  frmLenta() : frmPrueba("frmLenta") {}

 protected:
  void Form_Load() override { Refresh(); }
};

// A host in its event loop whose own windows are out of sight.
TEST_F(LeavingTest, NoProgramIsToldToQuitBetweenTwoShowsOfAForm) {
  EventCounter quits(QEvent::Quit, true);
  QCoreApplication::instance()->installEventFilter(&quits);
  outer = std::make_shared<frmLenta>();
  TakeTurns();
  outer->cmdPagina.Click = [this] {
    outer->Unload();
    inner->ShowModal();
  };
  Then("cmdPagina");
  Then("cmdAceptar");
  Then([&](auto&) { EXPECT_EQ(quits.count, 0); }, "cmdCancelar");
  QTimer::singleShot(0, QCoreApplication::instance(), [this] {
    Show(*outer);
    QTimer::singleShot(0, QCoreApplication::instance(), [] { QCoreApplication::exit(); });
  });
  QCoreApplication::exec();
  EXPECT_EQ(quits.count, 1) << "once all forms have gone";
}

TEST_F(LeavingTest, TheHandlerThatRunsEndsFirst) {
  outer->cmdPagina.Click = [this] {
    screen.Leave();
    outer->Refresh();
    events.emplace_back("guardado");
  };
  Then("cmdPagina");
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("guardado", "fuera"));
}

TEST_F(LeavingTest, AFormThatIsOpenedMeanwhileComesNotOnTheScreen) {
  inner->OnActivate = Tells("activa");
  outer->cmdPagina.Click = [this] {
    screen.Leave();
    inner->ShowModal();
    EXPECT_FALSE(inner->Loaded());
    events.emplace_back("sigue");
  };
  Then("cmdPagina");
  Show(*outer);
  EXPECT_THAT(events, ElementsAre("dentro", "sigue", "fuera"));
}

TEST_F(LeavingTest, AnActivationThatRunsEndsFirst) {
  outer->OnActivate = [this] {
    QTimer::singleShot(0, [this] { screen.Leave(); });
    outer->Refresh();
    EXPECT_TRUE(screen.Leaving());
    events.emplace_back("activa");
  };
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("activa", "fuera"));
}

TEST_F(LeavingTest, AFormWhoseWindowJustComesUpIsNotActivated) {
  outer->OnActivate = Tells("activa");
  QTimer::singleShot(0, [this] { screen.Leave(); });
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("fuera"));
}

TEST_F(LeavingTest, TheMessageThatWaitsCountsAsReadAndNoOtherComes) {
  auto shown = 0;
  screen.MessageShown = [this, &shown](QMessageBox&) {
    ++shown;
    screen.Leave();
  };
  outer->cmdPagina.Click = [this] {
    for (const auto* const text : {"Uno", "Dos"}) MessageBox(text, MessageIcon::Information);
    events.emplace_back("sigue");
  };
  Then("cmdPagina");
  outer->ShowModal();
  EXPECT_EQ(shown, 1);
  EXPECT_THAT(events, ElementsAre("sigue", "fuera"));
}

TEST_F(LeavingTest, WhatTheUserDoesMeanwhileGoesNowhere) {
  Then(Leave(), "cmdAceptar", Type("txtTexto", "1"), Close);
  outer->ShowModal();
  EXPECT_THAT(outer->log, ElementsAre("descarga"));
}

TEST_F(LeavingTest, LeavingAgainDoesNothing) {
  outer->OnUnload = [this] {
    screen.Leave();
    events.emplace_back("fuera");
  };
  Then(Leave(), Leave());
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("fuera"));
}

TEST_F(LeavingTest, AFailingUnloadKeepsNoOtherFormFromIt) {
  inner->OnUnload = [] { throw RuntimeError(ErrorNumber::StatementFailed, "uno"); };
  outer->OnUnload = [this] {
    events.emplace_back("fuera");
    throw RuntimeError(ErrorNumber::StatementFailed, "dos");
  };
  LeaveFromInner();
  Show(*outer);
  EXPECT_THAT(events, ElementsAre("sigue", "fuera"));
  EXPECT_EQ(Failures(), "uno, dos");
}

TEST_F(LeavingTest, AHandlerThatFailsMeanwhileIsFollowedByTheUnload) {
  inner->cmdAceptar.Click = LeavesAndFails();
  screen.FailedWhileLeaving = [this](const std::exception_ptr& failure) {
    EXPECT_NE(failure, nullptr);
    events.emplace_back("falla");
  };
  Then("cmdPagina");
  Then("cmdAceptar");
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("falla", "dentro", "sigue", "fuera"));
  EXPECT_EQ(Failures(), "fallo");
}

TEST_F(LeavingTest, AnActivationThatFailsMeanwhileIsFollowedByTheUnload) {
  outer->OnActivate = LeavesAndFails();
  outer->ShowModal();
  EXPECT_THAT(events, ElementsAre("fuera"));
  EXPECT_EQ(Failures(), "fallo");
}

}  // namespace
}  // namespace quorvane::test
