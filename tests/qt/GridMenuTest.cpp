// What the right button and the menu key open on grids and lists.

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QTableView>
#include <stdexcept>

#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

class GridMenuTest : public PruebaTest {
 protected:
  using Texts = std::vector<std::string>;

  /// As the window system tells of a press of the right button there.
  static void AskAt(QWidget& viewport, QPoint where) {
    QTest::mouseClick(&viewport, Qt::RightButton, {}, where);
    QContextMenuEvent event(QContextMenuEvent::Mouse, where, viewport.mapToGlobal(where));
    QApplication::sendEvent(&viewport, &event);
  }
  static void AskOnCell(const qt::FormWindow& window, const char* grid, int row, int col) {
    const auto* table = Of<QTableView>(window, grid);
    AskAt(*table->viewport(), CellCentre(*table, row, col));
  }
  static QMenu* Opened() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  /// Fails the test when none is open.
  static QMenu& Menu() {
    if (Opened() == nullptr) throw std::logic_error("no menu is open");
    return *Opened();
  }
  static Texts Entries() {
    Texts texts;
    for (const auto* action : Menu().actions())
      texts.push_back(action->text().section('\t', 0, 0).toStdString());
    return texts;
  }
  static void Choose(const std::string& entry) {
    for (auto* action : Menu().actions())
      if (action->text().section('\t', 0, 0).toStdString() == entry) {
        Menu().setActiveAction(action);
        return QTest::keyClick(Opened(), Qt::Key_Return);
      }
    throw std::logic_error("no " + entry);
  }
  static std::string Clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

TEST_F(GridMenuTest, CopiesTheRowThatWasChosenOrTheWholeTableWithItsHeadings) {
  Run([](qt::FormWindow& window) {
    AskOnCell(window, "msgRejilla", 1, 0);
    EXPECT_THAT(Entries(), ElementsAre("Copiar", "Copiar la tabla entera"));
    Choose("Copiar");
    EXPECT_EQ(Clipboard(), "Matemáticas (1º ESO)\tX\t\n");
    AskOnCell(window, "msgRejilla", 1, 0);
    Choose("Copiar la tabla entera");
    EXPECT_EQ(Clipboard(),
              "Materia\t1ª Eval.\tFinal\nLengua (1º ESO)\tX\t\nMatemáticas (1º ESO)\tX\t\n"
              "Música (2º ESO)\tX\t\n");
  });
}

TEST_F(GridMenuTest, TheMenuKeyOpensItToo) {
  Run([](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "rtvNotas");
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, table->mapToGlobal(QPoint(1, 1)));
    QApplication::sendEvent(table, &event);
    Menu().close();
  });
}

TEST_F(GridMenuTest, TheHostAddsWhatItCanDoWithAGridOrAList) {
  Texts asked;
  screen.GridMenuOpening = [&asked](QMenu& menu, qt::FormWindow& window, const Control& grid) {
    asked.push_back(window.Model().Name() + " " + grid.Name());
    menu.addAction("Guardar", &window, [&asked] { asked.push_back("guarda"); });
  };
  Run([](qt::FormWindow& window) {
    AskOnCell(window, "rtvNotas", 0, 0);
    Choose("Guardar");
    AskAt(*Of<QListWidget>(window, "lstLista(0)")->viewport(), {5, 5});
    Menu().close();
  });
  EXPECT_THAT(asked, ElementsAre("frmPrueba rtvNotas", "guarda", "frmPrueba lstLista(0)"));
}

TEST_F(GridMenuTest, AListWithNothingToOfferOpensNone) {
  Run([](qt::FormWindow& window) {
    AskAt(*Of<QListWidget>(window, "lstLista(0)")->viewport(), {5, 5});
    EXPECT_EQ(Opened(), nullptr);
  });
}

TEST_F(GridMenuTest, FillsDownWhatIsSelectedRoundTheCellThatItIsAskedFor) {
  form->rtvNotas.AddItem("Ana");
  const auto extend = Key("rtvNotas", Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
  const auto fill = [](qt::FormWindow& window) {
    AskOnCell(window, "rtvNotas", 1, 1);
    EXPECT_THAT(Entries(),
                ElementsAre("Copiar", "Copiar la tabla entera", "Pegar", "Rellenar hacia abajo"));
    Choose("Rellenar hacia abajo");
  };
  Run(Key("rtvNotas", Qt::Key_Right), extend, extend, fill, [](qt::FormWindow& window) {
    EXPECT_EQ(CellText(window, "rtvNotas", 1, 1), "10");
    EXPECT_EQ(CellText(window, "rtvNotas", 2, 1), "10");
    EXPECT_EQ(Of<QTableView>(window, "rtvNotas")->selectionModel()->selectedIndexes().size(), 3);
  });
}

TEST_F(GridMenuTest, PastesTheClipboard) {
  QGuiApplication::clipboard()->setText("5\n1\n");
  Run([](qt::FormWindow& window) {
    AskOnCell(window, "rtvNotas", 0, 2);
    Choose("Pegar");
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 2), "5");
    EXPECT_EQ(CellText(window, "rtvNotas", 1, 2), "1");
    // What can't be done stands there in grey.
    QGuiApplication::clipboard()->clear();
    AskOnCell(window, "rtvNotas", 0, 0);
    const auto actions = Menu().actions();
    EXPECT_FALSE(actions[2]->isEnabled());
    EXPECT_FALSE(actions[3]->isEnabled());
    Menu().close();
  });
}

TEST_F(GridMenuTest, GoesWithItsGrid) {
  Run([this](qt::FormWindow& window) {
    AskOnCell(window, "rtvNotas", 0, 1);
    ASSERT_NE(Opened(), nullptr);
    window.FrontEnd().Gesture(window, [this] { form->rtvNotas.Visible(false); });
    EXPECT_EQ(Opened(), nullptr);
  });
}

TEST_F(GridMenuTest, OpensNoneWhereTheUserMayNotAct) {
  form->cmdPagina.Click = [this] {
    form->msgRejilla.Enabled(false);
    AskOnCell(*screen.ActiveWindow(), "rtvNotas", 0, 0);
    EXPECT_EQ(Opened(), nullptr) << "a handler runs";
  };
  Run("cmdPagina", [](qt::FormWindow& window) {
    AskOnCell(window, "msgRejilla", 0, 0);
    EXPECT_EQ(Opened(), nullptr);
  });
}

TEST_F(GridMenuTest, CopyingTakesTheWholeTableUntilTheUserChooses) {
  form->rtvNotas.TextMatrix(2, 2, "di \"bien\"");
  // The form goes elsewhere by itself: that is no choice of the user's.
  form->cmdPagina.Click = [this] {
    form->rtvNotas.Row(2);
    form->rtvNotas.Col(0);
  };
  const auto copied = [](const std::string& text) {
    return [text](auto&) { EXPECT_EQ(Clipboard(), text); };
  };
  const auto copy = Key("rtvNotas", Qt::Key_C, Qt::ControlModifier);
  const auto whole = "Materia\tNota\tActitud\nLengua\t10\t\nInglés\t\t\"di \"\"bien\"\"\"\n";
  Run(copy, copied(whole), Key("rtvNotas", Qt::Key_Right), copy, copied("10\n"),
      Key("rtvNotas", Qt::Key_Right, Qt::ShiftModifier), copy, copied("10\t\n"),
      Key("rtvNotas", Qt::Key_A, Qt::ControlModifier), copy,
      copied("Lengua\t10\t\nInglés\t\t\"di \"\"bien\"\"\"\n"), "cmdPagina", copy, copied(whole));
  EXPECT_THAT(seen, IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
