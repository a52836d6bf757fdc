#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "platform/RuntimeError.h"
#include "platform/host/MessageBox.h"
#include "tests/qt/Hands.h"
#include "tests/qt/ScreenTest.h"
#include "tests/qt/frmPrueba.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

class ModalityTest : public ScreenTest {
 protected:
  std::shared_ptr<frmPrueba> outer = std::make_shared<frmPrueba>("frmFuera");
  std::shared_ptr<frmPrueba> inner = std::make_shared<frmPrueba>("frmDentro");
};

TEST_F(ModalityTest, TheHostIsToldOfAFormThatGoesInOrder) {
  std::vector<const Form*> gone;
  screen.FormUnloading = [&gone](const Form& form) { gone.push_back(&form); };
  Then([&gone](qt::FormWindow& window) {
    EXPECT_TRUE(gone.empty());
    window.close();
  });
  Show(*outer);
  EXPECT_EQ(gone, std::vector<const Form*>{outer.get()});
}

TEST_F(ModalityTest, TheXUnloads) {
  Then([](qt::FormWindow& window) { window.close(); });
  Show(*outer);
  EXPECT_THAT(outer->log, ElementsAre("descarga"));
  EXPECT_FALSE(outer->Loaded());
}

TEST_F(ModalityTest, EscPressesTheButtonThatCancels) {
  Then([](qt::FormWindow& window) { Key(window, "cboCurso", Qt::Key_Escape); });
  outer->ShowModal();
  EXPECT_THAT(outer->log, ElementsAre("cancelar", "descarga"));
}

TEST_F(ModalityTest, EscWithoutSuchAButtonClosesAsTheXDoes) {
  outer->cmdCancelar.Cancel = false;
  Then([](qt::FormWindow& window) { Key(window, "cboCurso", Qt::Key_Escape); });
  outer->ShowModal();
  EXPECT_THAT(outer->log, ElementsAre("descarga"));
}

TEST_F(ModalityTest, EscOnADisabledButtonDoesNothing) {
  outer->cmdCancelar.Enabled(false);
  Then([this](qt::FormWindow& window) {
    Key(window, "cboCurso", Qt::Key_Escape);
    EXPECT_TRUE(outer->Visible());
    window.close();
  });
  outer->ShowModal();
  EXPECT_THAT(outer->log, ElementsAre("descarga"));
}

TEST_F(ModalityTest, EnterPressesTheDefaultButton) {
  Then([](qt::FormWindow& window) { Key(window, "cboCurso", Qt::Key_Return); });
  outer->ShowModal();
  EXPECT_THAT(outer->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ModalityTest, ShownIsToldOnceItStandsOnTheScreen) {
  auto visible = false;
  outer->OnActivate = [this, &visible] { visible = screen.ActiveWindow()->isVisible(); };
  Then([](qt::FormWindow& window) { window.close(); });
  outer->ShowModal();
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
  Then([](qt::FormWindow& window) {
    Click(window, "cmdPagina");
    Click(window, "cmdAceptar");
  });
  Then([this](qt::FormWindow& window) {
    EXPECT_TRUE(window.parentWidget() != nullptr && window.parentWidget()->isVisible());
    // The window below has a handler that runs: what reaches it is dropped.
    Click(static_cast<qt::FormWindow&>(*window.parentWidget()), "chkTodo");
    Click(window, "cmdAceptar");
  });
  Show(*outer);
  EXPECT_THAT(outer->log, ElementsAre("sigue", "aceptar", "descarga"));
  EXPECT_THAT(inner->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ModalityTest, TheHostsWindowWaitsAndItsOthersDoNot) {
  QLineEdit host;
  QLineEdit other;
  for (auto* const window : {&host, &other}) window->show();
  for (auto* const before : {&host, static_cast<QLineEdit*>(nullptr)}) {
    screen.HostWindow(before);
    outer = std::make_shared<frmPrueba>("frmFuera");
    Then([&](qt::FormWindow& window) {
      // As the keys come from the desktop, to a window.
      QTest::keyClick(host.windowHandle(), Qt::Key_A);
      QTest::keyClick(other.windowHandle(), Qt::Key_B);
      Click(window, "cmdAceptar");
    });
    outer->ShowModal();
    EXPECT_EQ(host.text(), "");
    EXPECT_EQ(other.text(), before == nullptr ? "" : "b");
    other.clear();
  }
  screen.HostWindow(nullptr);
  ExpectDone();
}

TEST_F(ModalityTest, AFormThatIsHiddenEndsItsShowOnceTheOneItOpenedIsGone) {
  outer->cmdPagina.Click = [this] {
    outer->Hide();
    inner->ShowModal();
  };
  qt::FormWindow* first = nullptr;
  Then([&first](qt::FormWindow& window) {
    first = &window;
    Click(window, "cmdPagina");
  });
  Then([&first](qt::FormWindow& window) {
    EXPECT_FALSE(first->isVisible());
    Click(window, "cmdAceptar");
  });
  outer->ShowModal();
  EXPECT_TRUE(outer->Loaded());
  outer->Unload();
  ExpectDone();
}

// Step two goes back to step one by showing it again, over and over.
TEST_F(ModalityTest, TheSameFormIsShownAgainFromInside) {
  outer->cmdPagina.Click = [this] {
    outer->Hide();
    inner->ShowModal();
  };
  inner->cmdAceptar.Click = [this] {
    inner->Unload();
    outer->ShowModal();
  };
  for (int round = 0; round < 4; ++round) {
    Then("cmdPagina");
    Then("cmdAceptar");
  }
  Then([this](qt::FormWindow& window) {
    auto visible = 0;
    for (const auto* top : QApplication::topLevelWidgets())
      if (top->isVisible() && dynamic_cast<const qt::FormWindow*>(top) != nullptr) ++visible;
    EXPECT_EQ(visible, 1);
    EXPECT_EQ(&window.Model(), outer.get());
    Click(window, "cmdCancelar");
  });
  Show(*outer);
}

TEST_F(ModalityTest, AFailureComesOutOfEveryShow) {
  outer->cmdPagina.Click = [this] { inner->ShowModal(); };
  inner->chkTodo.Click = [] { throw RuntimeError(ErrorNumber::StatementFailed, "fallo"); };
  Then("cmdPagina");
  Then([](qt::FormWindow& window) {
    QTest::mouseClick(Of(window, "chkTodo"), Qt::LeftButton, {}, QPoint(8, 10));
  });
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
  Then([](qt::FormWindow& window) { Type(window, "txtTexto", "1"); });
  EXPECT_THROW(outer->ShowModal(), std::bad_alloc);
  ExpectDone();
}

TEST_F(ModalityTest, AFailureWhileTheFormIsActivatedComesOut) {
  outer->OnActivate = [] { throw RuntimeError(ErrorNumber::NoCurrentRecord); };
  EXPECT_THROW(outer->ShowModal(), RuntimeError);
  ExpectDone();
}

TEST_F(ModalityTest, AFailureOnAKeyComesOut) {
  outer->OnKey = [](int&) { throw RuntimeError(ErrorNumber::Overflow); };
  Then([](qt::FormWindow& window) { Key(window, "chkTodo", Qt::Key_Up); });
  EXPECT_THROW(outer->ShowModal(), RuntimeError);
}

TEST_F(ModalityTest, TheProgramGoesOnAfterAFailure) {
  outer->cmdPagina.Click = [] { throw RuntimeError(ErrorNumber::Overflow); };
  Then("cmdPagina");
  EXPECT_THROW(outer->ShowModal(), RuntimeError);
  Then("cmdAceptar");
  Show(*inner);
  EXPECT_THAT(inner->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ModalityTest, AMessageBearsTitleTextAndIcon) {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  std::string title;
  QWidget* parent = nullptr;
  screen.MessageShown = [&](QMessageBox& box) {
    icon = box.icon();
    title = box.windowTitle().toStdString();
    parent = box.parentWidget();
    messages.push_back(box.text().toStdString());
    box.accept();
  };
  outer->cmdPagina.Click = [] { MessageBox("Uno\rDos & tres", MessageIcon::Critical); };
  Then([&parent](qt::FormWindow& window) {
    Click(window, "cmdPagina");
    EXPECT_EQ(parent, &window);
    Click(window, "cmdAceptar");
  });
  outer->ShowModal();
  EXPECT_THAT(messages, ElementsAre("Uno\nDos & tres"));
  EXPECT_EQ(title, "Zendria Escuela");
  EXPECT_EQ(icon, QMessageBox::Critical);
}

TEST_F(ModalityTest, TheFormShowsItsChangesBehindAMessage) {
  std::string caption;
  Then([this, &caption](qt::FormWindow& window) {
    outer->cmdPagina.Click = [this] {
      outer->cmdPagina.Caption("Pulsado");
      MessageBox("Ya", MessageIcon::Information);
    };
    screen.MessageShown = [&window, &caption](QMessageBox& box) {
      caption = Of<QPushButton>(window, "cmdPagina")->text().toStdString();
      box.accept();
    };
    Click(window, "cmdPagina");
    Click(window, "cmdAceptar");
  });
  outer->ShowModal();
  EXPECT_EQ(caption, "Pulsado");
}

TEST_F(ModalityTest, AFailureOfWhoAnswersAMessageComesOut) {
  screen.MessageShown = [](QMessageBox&) { throw std::logic_error("unexpected"); };
  outer->cmdPagina.Click = [] { MessageBox("Ya", MessageIcon::Information); };
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
