#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <cstddef>

#include "platform/RuntimeError.h"
#include "platform/host/MessageBox.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

class ModalityTest : public TwoFormsTest {
 protected:
  /// What the outer form writes down while the user does that in it.
  template <class... Gestures>
  std::vector<std::string> LogOf(Gestures... gestures) {
    Then(gestures...);
    Show(*outer);
    return outer->log;
  }
  /// Its button tells that and nothing else happens.
  void MessageOnButton(const char* text, MessageIcon icon = MessageIcon::Information) {
    outer->cmdPagina.Click = [=] { MessageBox(text, icon); };
  }
  /// Of forms, whether they are seen or not.
  static std::ptrdiff_t Windows() {
    const auto windows = QApplication::topLevelWidgets();
    return std::count_if(windows.begin(), windows.end(), [](const QWidget* window) {
      return dynamic_cast<const qt::FormWindow*>(window) != nullptr;
    });
  }
  static std::function<void()> Fails(ErrorNumber number) {
    return [number] { throw RuntimeError(number); };
  }

  const Gesture escape = Key("cboCurso", Qt::Key_Escape);
};

TEST_F(ModalityTest, TheHostIsToldOfAFormThatGoesInOrder) {
  std::vector<const Form*> gone;
  screen.FormUnloading = [&gone](const Form& form) { gone.push_back(&form); };
  LogOf([&gone](auto&) { EXPECT_TRUE(gone.empty()); }, Close);
  EXPECT_EQ(gone, std::vector<const Form*>{outer.get()});
}

TEST_F(ModalityTest, AKeyThatWasPressedWhileTheFormLoadedComesBehindWhatTheHostDoesFirst) {
  screen.FormReady = [this](qt::FormWindow&) { outer->Log("anfitrión"); };
  outer->OnActivate = [this] {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      QCoreApplication::postEvent(screen.ActiveWindow()->Widget("cboCurso"),
                                  new QKeyEvent(type, Qt::Key_Return, Qt::NoModifier));
  };
  Show(*outer);
  EXPECT_THAT(outer->log, ElementsAre("anfitrión", "aceptar", "descarga"));
}

TEST_F(ModalityTest, NoKeyThatWasPressedWhileTheFormLoadedAnswersTheHostNorReachesTheForm) {
  screen.FormReady = [this](qt::FormWindow& window) {
    QMessageBox box(QMessageBox::Question, "", "?", QMessageBox::Ok | QMessageBox::Cancel, &window);
    QTimer::singleShot(0, &box, [&box] {
      QCoreApplication::processEvents();
      EXPECT_TRUE(box.isVisible());
      box.done(QMessageBox::Cancel);
    });
    EXPECT_EQ(box.exec(), QMessageBox::Cancel);
    outer->Log("anfitrión");
  };
  // As the desktop brings them, to the window.
  outer->OnActivate = [this] {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      qt_handleKeyEvent(screen.ActiveWindow()->windowHandle(), type, Qt::Key_Return,
                        Qt::NoModifier);
  };
  Then(Close);
  Show(*outer);
  EXPECT_THAT(outer->log, ElementsAre("anfitrión", "descarga"));
}

TEST_F(ModalityTest, TheXUnloads) {
  EXPECT_THAT(LogOf(Close), ElementsAre("descarga"));
  EXPECT_FALSE(outer->Loaded());
}

TEST_F(ModalityTest, EscPressesTheButtonThatCancels) {
  EXPECT_THAT(LogOf(escape), ElementsAre("cancelar", "descarga"));
}

TEST_F(ModalityTest, EscWithoutSuchAButtonClosesAsTheXDoes) {
  outer->cmdCancelar.Cancel = false;
  EXPECT_THAT(LogOf(escape), ElementsAre("descarga"));
}

TEST_F(ModalityTest, EscOnADisabledButtonDoesNothing) {
  outer->cmdCancelar.Enabled(false);
  const auto isThere = [this](auto&) { EXPECT_TRUE(outer->Visible()); };
  EXPECT_THAT(LogOf(escape, isThere, Close), ElementsAre("descarga"));
}

TEST_F(ModalityTest, EnterPressesTheDefaultButton) {
  EXPECT_THAT(LogOf(Key("cboCurso", Qt::Key_Return)), ElementsAre("aceptar", "descarga"));
}

TEST_F(ModalityTest, ShownIsToldOnceItStandsOnTheScreen) {
  auto visible = false;
  outer->OnActivate = [this, &visible] { visible = screen.ActiveWindow()->isVisible(); };
  LogOf(Close);
  EXPECT_TRUE(visible);
}

TEST_F(ModalityTest, AFormThatUnloadsWhileItIsActivatedIsGone) {
  outer->OnActivate = [this] { outer->Unload(); };
  Show(*outer);
}

TEST_F(ModalityTest, TheWindowBelowWaitsForTheOneBefore) {
  outer->cmdPagina.Click = [this] {
    inner->ShowModal();
    outer->Log("sigue");
  };
  Then("cmdPagina", "cmdAceptar");
  const auto clickBelow = [](auto& window) {
    ASSERT_TRUE(window.parentWidget() != nullptr && window.parentWidget()->isVisible());
    // The window below has a handler that runs: what reaches it is dropped.
    Click("chkTodo")(static_cast<qt::FormWindow&>(*window.parentWidget()));
  };
  Then(clickBelow, "cmdAceptar");
  Show(*outer);
  EXPECT_THAT(outer->log, ElementsAre("sigue", "aceptar", "descarga"));
  EXPECT_THAT(inner->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ModalityTest, TheHostsWindowWaitsAndItsOthersDoNot) {
  QLineEdit host;
  QLineEdit other;
  for (auto* const window : {&host, &other}) window->show();
  const auto typeIntoBoth = [&](auto&) {
    // As the keys come from the desktop, to a window.
    QTest::keyClick(host.windowHandle(), Qt::Key_A);
    QTest::keyClick(other.windowHandle(), Qt::Key_B);
  };
  for (auto* const before : {&host, static_cast<QLineEdit*>(nullptr)}) {
    screen.HostWindow(before);
    outer = std::make_shared<frmPrueba>("frmFuera");
    LogOf(typeIntoBoth, "cmdAceptar");
    EXPECT_EQ(host.text(), "");
    EXPECT_EQ(other.text(), before == nullptr ? "" : "b");
    other.clear();
  }
  screen.HostWindow(nullptr);
}

TEST_F(ModalityTest, AFormThatIsHiddenEndsItsShowOnceTheOneItOpenedIsGone) {
  HideOuterBehindInner();
  inner->cmdAceptar.Click = [this] { inner->Unload(); };
  qt::FormWindow* first = nullptr;
  Then([&first](auto& window) { first = &window; }, "cmdPagina");
  Then([&first](auto&) { EXPECT_FALSE(first->isVisible()); }, "cmdAceptar");
  outer->ShowModal();
  EXPECT_TRUE(outer->Loaded());
  outer->Unload();
  ExpectDone();
}

// Step two goes back to step one, over and over: a thousand turns must leave no more windows than
// one.
TEST_F(ModalityTest, TwoFormsThatTakeTurnsHaveAWindowEach) {
  TakeTurns();
  for (int round = 0; round < 4; ++round) {
    Then("cmdPagina");
    Then([](auto&) { EXPECT_EQ(Windows(), 2); }, "cmdAceptar");
  }
  LogOf(
      [this](auto& window) {
        EXPECT_EQ(Windows(), 1);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(&window.Model(), outer.get());
      },
      "cmdCancelar");
  EXPECT_THAT(outer->log, ElementsAre("cancelar", "descarga"));
}

TEST_F(ModalityTest, TheSameFormIsShownAgainFromInside) {
  HideOuterBehindInner();
  for (int round = 0; round < 4; ++round) {
    Then("cmdPagina");
    Then("cmdAceptar");
  }
  const auto isAlone = [this](auto& window) {
    auto visible = 0;
    for (const auto* top : QApplication::topLevelWidgets())
      if (top->isVisible() && dynamic_cast<const qt::FormWindow*>(top) != nullptr) ++visible;
    EXPECT_EQ(visible, 1);
    EXPECT_EQ(&window.Model(), outer.get());
  };
  LogOf(isAlone, "cmdCancelar");
}

TEST_F(ModalityTest, AFailureComesOutOfEveryShow) {
  outer->cmdPagina.Click = [this] { inner->ShowModal(); };
  inner->chkTodo.Click = [] { throw RuntimeError(ErrorNumber::StatementFailed, "fallo"); };
  Then("cmdPagina");
  Then(ClickSquare("chkTodo"));
  try {
    outer->ShowModal();
    FAIL() << "nothing came out";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), -2147467259);
    EXPECT_EQ(error.Description(), "fallo");
  }
  ExpectDone();
}

TEST_F(ModalityTest, AForeignExceptionComesOutToo) {
  outer->txtTexto.Change = [] { throw std::bad_alloc(); };
  Then(Type("txtTexto", "1"));
  EXPECT_THROW(outer->ShowModal(), std::bad_alloc);
  ExpectDone();
}

TEST_F(ModalityTest, AFailureWhileTheFormIsActivatedComesOut) {
  outer->OnActivate = Fails(ErrorNumber::NoCurrentRecord);
  EXPECT_THROW(outer->ShowModal(), RuntimeError);
  ExpectDone();
}

TEST_F(ModalityTest, AFailureOnAKeyComesOut) {
  outer->OnKey = [](int&) { throw RuntimeError(ErrorNumber::Overflow); };
  Then(Key("chkTodo", Qt::Key_Up));
  EXPECT_THROW(outer->ShowModal(), RuntimeError);
}

TEST_F(ModalityTest, TheProgramGoesOnAfterAFailure) {
  outer->cmdPagina.Click = Fails(ErrorNumber::Overflow);
  Then("cmdPagina");
  EXPECT_THROW(outer->ShowModal(), RuntimeError);
  Then("cmdAceptar");
  Show(*inner);
  EXPECT_THAT(inner->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ModalityTest, AMessageBearsTitleTextAndIcon) {
  QWidget* parent = nullptr;
  screen.MessageShown = [&](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Critical);
    EXPECT_EQ(box.windowTitle(), "Zendria Escuela");
    parent = box.parentWidget();
    messages.push_back(box.text().toStdString());
    box.accept();
  };
  MessageOnButton("Uno\rDos & tres", MessageIcon::Critical);
  LogOf(
      "cmdPagina", [&parent](auto& window) { EXPECT_EQ(parent, &window); }, "cmdAceptar");
  EXPECT_THAT(messages, ElementsAre("Uno\nDos & tres"));
}

TEST_F(ModalityTest, TheFormShowsItsChangesBehindAMessage) {
  std::string caption;
  outer->cmdPagina.Click = [this] {
    outer->cmdPagina.Caption("Pulsado");
    MessageBox("Ya", MessageIcon::Information);
  };
  screen.MessageShown = [this, &caption](QMessageBox& box) {
    caption = Of<QPushButton>(*screen.ActiveWindow(), "cmdPagina")->text().toStdString();
    box.accept();
  };
  LogOf("cmdPagina", "cmdAceptar");
  EXPECT_EQ(caption, "Pulsado");
}

TEST_F(ModalityTest, AFailureOfWhoAnswersAMessageComesOut) {
  screen.MessageShown = [](QMessageBox&) { throw std::logic_error("unexpected"); };
  MessageOnButton("Ya");
  Then("cmdPagina");
  EXPECT_THROW(outer->ShowModal(), std::logic_error);
}

TEST_F(ModalityTest, TheHourglassStandsUntilItIsTakenBackButNotOverAMessage) {
  auto overMessage = true;
  screen.MessageShown = [&overMessage](QMessageBox& box) {
    overMessage = QApplication::overrideCursor() != nullptr;
    box.accept();
  };
  screen.MousePointer(Pointer::Hourglass);
  screen.MousePointer(Pointer::Hourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  MessageBox("Ya", MessageIcon::Information);
  EXPECT_FALSE(overMessage);
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
  screen.MousePointer(Pointer::Default);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace quorvane::test
