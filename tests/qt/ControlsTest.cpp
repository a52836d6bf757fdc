#include <QAbstractItemView>
#include <QApplication>
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

using Modifiers = Qt::KeyboardModifiers;

Gesture Counts(const std::string& list, int entries) {
  return [=](auto& window) { EXPECT_EQ(Of<QListWidget>(window, list)->count(), entries); };
}

QComboBox& Box(const qt::FormWindow& window) { return *Of<QComboBox>(window, "cboCurso"); }

void OpenList(const qt::FormWindow& window) { Box(window).showPopup(); }

void IsClosed(const qt::FormWindow& window) { EXPECT_FALSE(Box(window).view()->isVisible()); }

/// A key that comes while the list of the box is open: it is announced, and then comes, each time
/// to the list unless that is closed by then.
Gesture PressInBox(Qt::Key key) {
  return [key](auto& window) {
    auto& box = Box(window);
    for (const auto type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
      QKeyEvent event(type, key, Qt::NoModifier);
      const auto open = box.view()->isVisible();
      QApplication::sendEvent(open ? static_cast<QWidget*>(box.view()) : &box, &event);
    }
  };
}

const std::vector<Play> kControlPlays{
    {"PickingAnEntrySelectsItAndClicks",
     Steps(Pick("cboCurso", "Segundo"),
           [](auto& window) { EXPECT_EQ(FormOf(window).cboCurso.ListIndex(), 1); }),
     {"curso 1"}},
    {"PickingTheEntryThatStandsClicksAgain",
     Steps(Pick("cboCurso", 2), Pick("cboCurso", 2)),
     {"curso 2", "curso 2"}},
    {"TheKeyboardWalksAComboAndFindsByLetter",
     Steps(Key("cboCurso", Qt::Key_Down), Type("cboCurso", "t")),
     {"curso 0", "curso 2"}},
    {"TheKeyThatPicksAnEntryOfAnOpenListIsNoKeyForTheForm",
     Steps(
         OpenList,
         [](auto& window) {
           Box(window).view()->setCurrentIndex(Box(window).model()->index(1, 0));
         },
         PressInBox(Qt::Key_Return), IsClosed, Key("cboCurso", Qt::Key_Down)),
     {"curso 1", "curso 2"}},
    {"TheKeyThatGivesItUpIsNoKeyForTheForm",
     Steps(OpenList, PressInBox(Qt::Key_Escape), IsClosed),
     {}},
    {"AListThatHasClosedTakesNoKeyThatWasOnItsWay",
     Steps(OpenList, PressInBox(Qt::Key_Return),
           [](auto& window) {
             QKeyEvent late(QEvent::ShortcutOverride, Qt::Key_Return, Qt::NoModifier);
             QApplication::sendEvent(Box(window).view(), &late);
           }),
     {"curso 0"}},
    {"ACheckBoxFollowsTheMouseAndTheBlank",
     Steps(Key("chkTodo", Qt::Key_Space), Key("chkTodo", Qt::Key_Space), ClickSquare("chkTodo")),
     {"todo 1", "todo 0", "todo 1"}},
    {"ATextBoxOffersEachKeyToTheFormFirst",
     Steps(Type("txtTexto", "1a2"), Key("txtTexto", Qt::Key_Backspace),
           [](auto& window) { EXPECT_EQ(Of<QLineEdit>(window, "txtTexto")->text(), "1"); }),
     {"texto 1", "texto 12", "texto 1"}},
    {"ADualListMovesByDoubleClickAndByEnter",
     Steps(DoubleClickCell("lstLista(0)", 1), Type("lstLista(0)", "ca"),
           Key("lstLista(0)", Qt::Key_Return), Counts("lstLista(0)", 1), Counts("lstLista(1)", 2)),
     {"doble 0 Bueno, Luis", "doble 0 Castro, Eva"}},
    {"NothingIsSelectedInAListUntilTheUserDoes",
     [](auto& window) {
       Of(window, "lstLista(0)")->setFocus();
       EXPECT_THAT(Of<QListWidget>(window, "lstLista(0)")->selectedItems(), IsEmpty());
       EXPECT_EQ(FormOf(window).lstLista[0].ListIndex(), -1);
     },
     {}},
    {"ATabIsSelectedAndPressedAgain",
     Steps(ClickTab("tabPaginas", 1), ClickTab("tabPaginas", 1)),
     {"pestana 2", "pestana 2"}},
    {"AFrameOverATabStripIsInReach",
     Steps(
         [](auto& window) {
           const auto* button = Of(window, "cmdPagina");
           EXPECT_EQ(window.childAt(button->mapTo(&window, button->rect().center())), button);
         },
         "cmdPagina"),
     {"pagina"}},
    {"ALabelNamesTheControlOnItsRight",
     [](auto& window) {
       EXPECT_EQ(Of<QLabel>(window, "lblCurso")->buddy(), Of(window, "cboCurso"));
       EXPECT_EQ(Of<QLabel>(window, "lblTexto")->buddy(), Of(window, "txtTexto"));
     },
     {}},
};

TEST_P(PlayTest, IsHeardOf) { Run(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Controls, PlayTest, ::testing::ValuesIn(kControlPlays), NameOfPlay);

using ControlsTest = PruebaTest;

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
    EXPECT_EQ(Box(window).count(), 1);
    EXPECT_EQ(Box(window).currentIndex(), -1);
  });
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

TEST_F(ControlsTest, AKeyThatTheFormChangesIsTypedAsThat) {
  form->txtTexto.KeyPress = [](int& key) { key = key == 'a' ? 'A' : key; };
  Run(Type("txtTexto", "ab"));
  EXPECT_THAT(seen, ElementsAre("texto A", "texto Ab"));
}

// The next Enter of somebody who moves entries must not end the dialog.
TEST_F(ControlsTest, EnterStaysInADualListAlsoWithNothingToMove) {
  Run([this](qt::FormWindow& window) {
    auto* const list = Of<QListWidget>(window, "lstLista(0)");
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
      for (const Modifiers with :
           {Modifiers(), Modifiers(Qt::ShiftModifier), Modifiers(Qt::ControlModifier),
            Modifiers(Qt::AltModifier), Modifiers(Qt::KeypadModifier)})
        Key("lstLista(0)", key, with)(window);
    EXPECT_EQ(list->count(), 3) << "none is selected";
    for (const auto& [key, with] : {std::pair(Qt::Key_Return, Modifiers()),
                                    std::pair(Qt::Key_Enter, Modifiers(Qt::KeypadModifier)),
                                    std::pair(Qt::Key_Return, Modifiers(Qt::ShiftModifier))}) {
      Key("lstLista(0)", Qt::Key_Home)(window);
      list->setCurrentRow(0);
      const auto before = list->count();
      Key("lstLista(0)", key, with)(window);
      EXPECT_EQ(list->count(), before - 1);
      EXPECT_TRUE(list->hasFocus());
      Key("lstLista(0)", key, with)(window);
      EXPECT_EQ(list->count(), before - 1) << "what took its place isn't selected";
    }
    ASSERT_EQ(list->count(), 0);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) Key("lstLista(0)", key)(window);
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
  Run(Pick("cboCurso", 0), HasKeyboard("txtTexto"));
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
