#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyleFactory>
#include <QTreeWidget>
#include <QWheelEvent>
#include <memory>

#include "adapters/qt/views/FocusBorder.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

using ControlsTest = PruebaTest;
using Modifiers = Qt::KeyboardModifiers;

TEST_F(ControlsTest, PickingAnEntrySelectsItAndClicks) {
  Run(Pick("cboCurso", "Segundo"));
  EXPECT_THAT(seen, ElementsAre("curso 1"));
  EXPECT_EQ(form->cboCurso.ListIndex(), 1);
}

TEST_F(ControlsTest, PickingTheEntryThatStandsClicksAgain) {
  Run(Pick("cboCurso", 2), Pick("cboCurso", 2));
  EXPECT_THAT(seen, ElementsAre("curso 2", "curso 2"));
}

TEST_F(ControlsTest, TheKeyboardWalksAComboAndFindsByLetter) {
  Run(Key("cboCurso", Qt::Key_Down), Type("cboCurso", "t"));
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
  Run(Pick("cboCurso", 1), [](const qt::FormWindow& window) {
    const auto* box = Of<QComboBox>(window, "cboCurso");
    EXPECT_EQ(box->count(), 1);
    EXPECT_EQ(box->currentIndex(), -1);
  });
}

class OpenComboTest : public PruebaTest {
 protected:
  static QComboBox& Box(const qt::FormWindow& window) { return *Of<QComboBox>(window, "cboCurso"); }
  static void OpenList(const qt::FormWindow& window) { Box(window).showPopup(); }
  static void ExpectClosed(const qt::FormWindow& window) {
    EXPECT_FALSE(Box(window).view()->isVisible());
  }
  /// A key that comes while the list of the box is open: it is announced, and then comes, each time
  /// to the list unless that is closed by then.
  static Gesture Press(Qt::Key key) {
    return [key](const qt::FormWindow& window) {
      auto& box = Box(window);
      for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        const auto open = box.view()->isVisible();
        QApplication::sendEvent(open ? static_cast<QWidget*>(box.view()) : &box, &event);
      }
    };
  }
};

TEST_F(OpenComboTest, TheKeyThatPicksAnEntryIsNoKeyForTheForm) {
  const auto mark = [](const qt::FormWindow& window) {
    Box(window).view()->setCurrentIndex(Box(window).model()->index(1, 0));
  };
  Run(OpenList, mark, Press(Qt::Key_Return), ExpectClosed, Key("cboCurso", Qt::Key_Down));
  EXPECT_THAT(seen, ElementsAre("curso 1", "curso 2"));
}

TEST_F(OpenComboTest, TheKeyThatGivesItUpIsNoKeyForTheForm) {
  Run(OpenList, Press(Qt::Key_Escape), ExpectClosed);
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(OpenComboTest, AListThatHasClosedTakesNoKeyThatWasOnItsWay) {
  Run(OpenList, Press(Qt::Key_Return), [](const qt::FormWindow& window) {
    QKeyEvent late(QEvent::ShortcutOverride, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(Box(window).view(), &late);
  });
  EXPECT_THAT(seen, ElementsAre("curso 0"));
}

TEST_F(ControlsTest, ADisabledControlTakesNoGesture) {
  form->cboCurso.Enabled(false);
  form->chkTodo.Enabled(false);
  form->fraPagina.Enabled(false);
  Run("chkTodo", Key("cboCurso", Qt::Key_Down), "cmdPagina");
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(ControlsTest, AControlOnAHiddenFrameIsNotSeen) {
  form->fraPagina.Visible(false);
  Run([](auto& window) { EXPECT_FALSE(Of(window, "cmdPagina")->isVisible()); });
}

TEST_F(ControlsTest, ACheckBoxFollowsTheMouseAndTheBlank) {
  Run(Key("chkTodo", Qt::Key_Space), Key("chkTodo", Qt::Key_Space), ClickSquare("chkTodo"));
  EXPECT_THAT(seen, ElementsAre("todo 1", "todo 0", "todo 1"));
}

TEST_F(ControlsTest, ATextBoxOffersEachKeyToTheFormFirst) {
  Run(Type("txtTexto", "1a2"), Key("txtTexto", Qt::Key_Backspace),
      [](auto& window) { EXPECT_EQ(Of<QLineEdit>(window, "txtTexto")->text(), "1"); });
  EXPECT_THAT(seen, ElementsAre("texto 1", "texto 12", "texto 1"));
}

TEST_F(ControlsTest, AKeyThatTheFormChangesIsTypedAsThat) {
  form->txtTexto.KeyPress = [](int& key) { key = key == 'a' ? 'A' : key; };
  Run(Type("txtTexto", "ab"));
  EXPECT_THAT(seen, ElementsAre("texto A", "texto Ab"));
}

TEST_F(ControlsTest, ADualListMovesByDoubleClickAndByEnter) {
  Run([](auto& window) { DoubleClickEntry(window, "lstLista(0)", 1); }, Type("lstLista(0)", "ca"),
      Key("lstLista(0)", Qt::Key_Return),
      [](auto& window) {
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
      for (const Modifiers with :
           {Modifiers(), Modifiers(Qt::ShiftModifier), Modifiers(Qt::ControlModifier),
            Modifiers(Qt::AltModifier), Modifiers(Qt::KeypadModifier)})
        Key(window, "lstLista(0)", key, with);
    EXPECT_EQ(list->count(), 3) << "none is selected";
    for (const auto& [key, with] : {std::pair(Qt::Key_Return, Modifiers()),
                                    std::pair(Qt::Key_Enter, Modifiers(Qt::KeypadModifier)),
                                    std::pair(Qt::Key_Return, Modifiers(Qt::ShiftModifier))}) {
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
  Then([this](auto&) { form->log.clear(); }, Key("lstLista(1)", Qt::Key_Return));
  form->ShowModal();
  EXPECT_THAT(form->log, ElementsAre("aceptar", "descarga"));
}

TEST_F(ControlsTest, NothingIsSelectedInAListUntilTheUserDoes) {
  Run([](auto& window) {
    Of(window, "lstLista(0)")->setFocus();
    EXPECT_THAT(Of<QListWidget>(window, "lstLista(0)")->selectedItems(), IsEmpty());
  });
  EXPECT_EQ(form->lstLista[0].ListIndex(), -1);
}

TEST_F(ControlsTest, ATabIsSelectedAndPressedAgain) {
  Run(ClickTab("tabPaginas", 1), ClickTab("tabPaginas", 1));
  EXPECT_THAT(seen, ElementsAre("pestana 2", "pestana 2"));
}

TEST_F(ControlsTest, AFrameOverATabStripIsInReach) {
  const auto isOnTop = [](qt::FormWindow& window) {
    const auto* button = Of(window, "cmdPagina");
    EXPECT_EQ(window.childAt(button->mapTo(&window, button->rect().center())), button);
  };
  Run(isOnTop, "cmdPagina");
  EXPECT_THAT(seen, ElementsAre("pagina"));
}

TEST_F(ControlsTest, ALabelNamesTheControlOnItsRight) {
  Run([](auto& window) {
    EXPECT_EQ(Of<QLabel>(window, "lblCurso")->buddy(), Of(window, "cboCurso"));
    EXPECT_EQ(Of<QLabel>(window, "lblTexto")->buddy(), Of(window, "txtTexto"));
  });
}

TEST_F(ControlsTest, TabFollowsTheOrderOfTheForm) {
  Run([](auto& window) {
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
  Run(Pick("cboCurso", 0),
      [](auto& window) { EXPECT_EQ(window.focusWidget(), Of(window, "txtTexto")); });
  EXPECT_EQ(form->WantsFocus(), nullptr);
}

TEST_F(ControlsTest, AButtonTakesItsPictureFromTheDrawings) {
  form->cmdPagina.Picture("C:\\no\\hay\\Buscar.ico");
  Run([](auto& window) {
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
