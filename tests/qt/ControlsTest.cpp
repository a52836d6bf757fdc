#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTabBar>
#include <QTreeWidget>
#include <QWheelEvent>
#include <memory>

#include "adapters/qt/views/FocusBorder.h"
#include "tests/qt/PruebaTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using ControlsTest = PruebaTest;

TEST_F(ControlsTest, PickingAnEntrySelectsItAndClicks) {
  Run([](qt::FormWindow& window) { Pick(window, "cboCurso", "Segundo"); });
  EXPECT_THAT(seen, ElementsAre("curso 1"));
  EXPECT_EQ(form->cboCurso.ListIndex(), 1);
}

TEST_F(ControlsTest, PickingTheEntryThatStandsClicksAgain) {
  Run([](qt::FormWindow& window) {
    Pick(window, "cboCurso", 2);
    Pick(window, "cboCurso", 2);
  });
  EXPECT_THAT(seen, ElementsAre("curso 2", "curso 2"));
}

TEST_F(ControlsTest, TheKeyboardWalksAComboAndFindsByLetter) {
  Run([](qt::FormWindow& window) {
    Key(window, "cboCurso", Qt::Key_Down);
    Type(window, "cboCurso", "t");
  });
  EXPECT_THAT(seen, ElementsAre("curso 0", "curso 2"));
}

TEST_F(ControlsTest, TheWheelOverAClosedListChoosesNothing) {
  Run([](qt::FormWindow& window) {
    auto* box = Of<QComboBox>(window, "cboCurso");
    box->setFocus();
    QWheelEvent wheel(box->rect().center(), box->mapToGlobal(box->rect().center()), {}, {0, -120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    EXPECT_FALSE(wheel.isAccepted()) << "what lies under it may roll";
  });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(ControlsTest, AComboShowsWhatAHandlerMakesOfIt) {
  form->cboCurso.Click = [this] {
    form->cboCurso.Clear();
    form->cboCurso.AddItem("Nuevo");
  };
  Run([](qt::FormWindow& window) {
    Pick(window, "cboCurso", 1);
    const auto* box = Of<QComboBox>(window, "cboCurso");
    EXPECT_EQ(box->count(), 1);
    EXPECT_EQ(box->currentIndex(), -1);
  });
}

/// A key that comes while the list of the box is open: it is announced, and then comes, each time
/// to the list unless that is closed by then.
void PressOnOpenList(QComboBox& box, Qt::Key key) {
  for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    const auto open = box.view()->isVisible();
    QApplication::sendEvent(open ? static_cast<QWidget*>(box.view()) : &box, &event);
  }
}

TEST_F(ControlsTest, TheKeyThatPicksAComboEntryIsNoKeyForTheForm) {
  Run([](qt::FormWindow& window) {
    auto* box = Of<QComboBox>(window, "cboCurso");
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(1, 0));
    PressOnOpenList(*box, Qt::Key_Return);
    EXPECT_FALSE(box->view()->isVisible());
    Key(window, "cboCurso", Qt::Key_Down);
  });
  EXPECT_THAT(seen, ElementsAre("curso 1", "curso 2"));
}

TEST_F(ControlsTest, TheKeyThatGivesAComboUpIsNoKeyForTheForm) {
  Run([](qt::FormWindow& window) {
    auto* box = Of<QComboBox>(window, "cboCurso");
    box->showPopup();
    PressOnOpenList(*box, Qt::Key_Escape);
    EXPECT_FALSE(box->view()->isVisible());
  });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(ControlsTest, AComboListThatHasClosedTakesNoKeyThatWasOnItsWay) {
  Run([](qt::FormWindow& window) {
    auto* box = Of<QComboBox>(window, "cboCurso");
    box->showPopup();
    PressOnOpenList(*box, Qt::Key_Return);
    QKeyEvent late(QEvent::ShortcutOverride, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(box->view(), &late);
  });
  EXPECT_THAT(seen, ElementsAre("curso 0"));
}

TEST_F(ControlsTest, ADisabledControlTakesNoGesture) {
  form->cboCurso.Enabled(false);
  form->chkTodo.Enabled(false);
  form->fraPagina.Enabled(false);
  Run([](qt::FormWindow& window) {
    Click(window, "chkTodo");
    Key(window, "cboCurso", Qt::Key_Down);
    Click(window, "cmdPagina");
  });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(ControlsTest, AControlOnAHiddenFrameIsNotSeen) {
  form->fraPagina.Visible(false);
  Run([](qt::FormWindow& window) { EXPECT_FALSE(Of(window, "cmdPagina")->isVisible()); });
}

TEST_F(ControlsTest, ACheckBoxFollowsTheMouseAndTheBlank) {
  Run([](qt::FormWindow& window) {
    Key(window, "chkTodo", Qt::Key_Space);
    Key(window, "chkTodo", Qt::Key_Space);
    QTest::mouseClick(Of(window, "chkTodo"), Qt::LeftButton, {}, QPoint(8, 10));
  });
  EXPECT_THAT(seen, ElementsAre("todo 1", "todo 0", "todo 1"));
}

TEST_F(ControlsTest, ATextBoxOffersEachKeyToTheFormFirst) {
  Run([](qt::FormWindow& window) {
    Type(window, "txtTexto", "1a2");
    Key(window, "txtTexto", Qt::Key_Backspace);
    EXPECT_EQ(Of<QLineEdit>(window, "txtTexto")->text(), "1");
  });
  EXPECT_THAT(seen, ElementsAre("texto 1", "texto 12", "texto 1"));
}

TEST_F(ControlsTest, AKeyThatTheFormChangesIsTypedAsThat) {
  form->txtTexto.KeyPress = [](int& key) { key = key == 'a' ? 'A' : key; };
  Run([](qt::FormWindow& window) { Type(window, "txtTexto", "ab"); });
  EXPECT_THAT(seen, ElementsAre("texto A", "texto Ab"));
}

TEST_F(ControlsTest, ADualListMovesByDoubleClickAndByEnter) {
  Run([](qt::FormWindow& window) {
    DoubleClickEntry(window, "lstLista(0)", 1);
    Type(window, "lstLista(0)", "ca");
    Key(window, "lstLista(0)", Qt::Key_Return);
    EXPECT_EQ(Of<QListWidget>(window, "lstLista(0)")->count(), 1);
    EXPECT_EQ(Of<QListWidget>(window, "lstLista(1)")->count(), 2);
  });
  EXPECT_THAT(seen, ElementsAre("doble 0 Bueno, Luis", "doble 0 Castro, Eva"));
}

// The next Enter of somebody who moves entries must not end the dialog.
TEST_F(ControlsTest, EnterStaysInADualListAlsoWithNothingToMove) {
  Run([this](qt::FormWindow& window) {
    auto* const list = Of<QListWidget>(window, "lstLista(0)");
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
      for (const Qt::KeyboardModifiers with :
           {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
            Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::AltModifier),
            Qt::KeyboardModifiers(Qt::KeypadModifier)})
        Key(window, "lstLista(0)", key, with);
    EXPECT_EQ(list->count(), 3) << "none is selected";
    for (const auto& [key, with] :
         {std::pair(Qt::Key_Return, Qt::KeyboardModifiers()),
          std::pair(Qt::Key_Enter, Qt::KeyboardModifiers(Qt::KeypadModifier)),
          std::pair(Qt::Key_Return, Qt::KeyboardModifiers(Qt::ShiftModifier))}) {
      Key(window, "lstLista(0)", Qt::Key_Home);
      list->setCurrentRow(0);
      const auto before = list->count();
      Key(window, "lstLista(0)", key, with);
      EXPECT_EQ(list->count(), before - 1);
      EXPECT_TRUE(list->hasFocus());
      Key(window, "lstLista(0)", key, with);
      EXPECT_EQ(list->count(), before - 1) << "what took its place isn't selected";
    }
    ASSERT_EQ(list->count(), 0);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) Key(window, "lstLista(0)", key);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_TRUE(form->Visible());
  });
  EXPECT_EQ(seen.size(), 3U) << "each entry moved once, and nothing else";
}

TEST_F(ControlsTest, EnterOnAListWithoutADoubleClickIsTheDefaultButtons) {
  form->lstLista[1].DblClick = nullptr;
  form->lstLista[1].AddItem("Díaz, Leo");
  form->lstLista[1].ListIndex(0);
  Then([this](qt::FormWindow& window) {
    form->log.clear();
    Key(window, "lstLista(1)", Qt::Key_Return);
  });
  form->ShowModal();
  EXPECT_THAT(form->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ControlsTest, NothingIsSelectedInAListUntilTheUserDoes) {
  Run([](qt::FormWindow& window) {
    Of(window, "lstLista(0)")->setFocus();
    EXPECT_THAT(Of<QListWidget>(window, "lstLista(0)")->selectedItems(), IsEmpty());
  });
  EXPECT_EQ(form->lstLista[0].ListIndex(), -1);
}

TEST_F(ControlsTest, ATabIsSelectedAndPressedAgain) {
  Run([](qt::FormWindow& window) {
    auto* bar = Of(window, "tabPaginas")->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
  });
  EXPECT_THAT(seen, ElementsAre("pestana 2", "pestana 2"));
}

TEST_F(ControlsTest, AFrameOverATabStripIsInReach) {
  Run([](qt::FormWindow& window) {
    const auto* button = Of(window, "cmdPagina");
    const auto centre = button->mapTo(&window, button->rect().center());
    EXPECT_EQ(window.childAt(centre), button);
    Click(window, "cmdPagina");
  });
  EXPECT_THAT(seen, ElementsAre("pagina"));
}

TEST_F(ControlsTest, ALabelNamesTheControlOnItsRight) {
  Run([](qt::FormWindow& window) {
    EXPECT_EQ(Of<QLabel>(window, "lblCurso")->buddy(), Of(window, "cboCurso"));
    EXPECT_EQ(Of<QLabel>(window, "lblTexto")->buddy(), Of(window, "txtTexto"));
  });
}

TEST_F(ControlsTest, TabFollowsTheOrderOfTheForm) {
  Run([](qt::FormWindow& window) {
    Of(window, "cboCurso")->setFocus();
    std::vector<std::string> order;
    for (int i = 0; i < 4; ++i) {
      QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
      order.push_back(window.focusWidget()->objectName().toStdString());
    }
    EXPECT_THAT(order, ElementsAre("chkTodo", "txtTexto", "lstLista(0)", "lstLista(1)"));
  });
}

TEST_F(ControlsTest, TheFormGivesTheKeyboard) {
  form->cboCurso.Click = [this] { form->txtTexto.SetFocus(); };
  Run([](qt::FormWindow& window) {
    Pick(window, "cboCurso", 0);
    EXPECT_EQ(window.focusWidget(), Of(window, "txtTexto"));
  });
  EXPECT_EQ(form->WantsFocus(), nullptr);
}

TEST_F(ControlsTest, AButtonTakesItsPictureFromTheDrawings) {
  form->cmdPagina.Picture("C:\\no\\hay\\Buscar.ico");
  Run([](qt::FormWindow& window) {
    EXPECT_FALSE(Of<QPushButton>(window, "cmdPagina")->icon().pixmap(16, 16).isNull());
    EXPECT_FALSE(window.windowIcon().pixmap(32, 32).isNull());
  });
}

TEST(FocusBorderTest, ATreeWithTheKeyboardShowsTheArrowOfItsSelectedRow) {
  const std::unique_ptr<QStyle> style(QStyleFactory::create("Fusion"));
  QTreeWidget tree;
  tree.setStyle(style.get());
  qt::ShowFocusOnBorder(tree);
  tree.setHeaderHidden(true);
  auto* const parent = new QTreeWidgetItem(&tree, {"1"});
  new QTreeWidgetItem(parent, {"Lengua"});
  tree.expandAll();
  tree.resize(200, 80);
  tree.setCurrentItem(parent);
  QFocusEvent focus(QEvent::FocusIn);
  QCoreApplication::sendEvent(&tree, &focus);

  const auto picture = tree.grab().toImage();
  const auto selection = tree.palette().color(QPalette::Highlight).rgb();
  EXPECT_EQ(picture.pixel(0, 40), selection) << "the border";
  const auto row = tree.visualItemRect(parent);
  const auto corner = tree.viewport()->pos();
  const auto ground = picture.pixel(corner.x() + 1, corner.y() + row.center().y());
  auto drawn = 0;
  for (int x = 1; x < row.left(); ++x)
    for (int y = row.top() + 2; y < row.bottom() - 2; ++y)
      if (picture.pixel(corner.x() + x, corner.y() + y) != ground) ++drawn;
  EXPECT_GT(drawn, 10) << "the arrow";
}

TEST(FocusBorderTest, AListThatDiesWithTheKeyboardDoesSoInPeace) {
  auto list = std::make_unique<QListWidget>();
  qt::ShowFocusOnBorder(*list);
  list->show();
  QApplication::setActiveWindow(list.get());
  list->setFocus();
  ASSERT_TRUE(list->hasFocus());
  list.reset();
  EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

}  // namespace
}  // namespace quorvane::test
