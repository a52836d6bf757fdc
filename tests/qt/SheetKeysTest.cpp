// A grid of grades is worked on as a spreadsheet is.

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTableView>
#include <cstdint>
#include <optional>

#include "adapters/qt/views/Units.h"
#include "platform/RuntimeError.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

// The keyboard and the mouse on the cells; list cells are the columns 1 and 2.

Gesture On(int row, int col) { return StandOn("rtvNotas", row, col); }

Gesture Write(const char* text) {
  return [=](qt::FormWindow& window) {
    // As many keys as letters: the first opens the list, which takes the others.
    for (const auto* letter = text; *letter != 0; ++letter)
      QTest::keyClick(window.focusWidget(), *letter);
  };
}

Gesture OnClipboard(const char* text) {
  return [=](auto&) { QGuiApplication::clipboard()->setText(text); };
}

Gesture DragFromTo(int row, int col, int lastRow, int lastCol) {
  return [=](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    const auto from = CellCentre(*table, row, col);
    const auto to = CellCentre(*table, lastRow, lastCol);
    QTest::mousePress(table->viewport(), Qt::LeftButton, {}, from);
    for (const auto place : {from, to}) {
      QMouseEvent event(QEvent::MouseMove, place, table->viewport()->mapToGlobal(place),
                        Qt::NoButton, Qt::LeftButton, {});
      QApplication::sendEvent(table->viewport(), &event);
    }
    QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, to);
    EXPECT_EQ(OpenedList(window), nullptr);
  };
}

void ClickWithShift(qt::FormWindow& window) {
  const auto* table = Of<QTableView>(window, "rtvNotas");
  QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ShiftModifier, CellCentre(*table, 2, 1));
}

/// That text stands there.
Gesture Given(int row, int col, const char* text) {
  return [=](auto& window) {
    FormOf(window).rtvNotas.TextMatrix(row + 1, col, text);
    window.Sync();
  };
}

/// The texts of that column, from the first student down.
Gesture Column(int col, const std::vector<std::string>& expected) {
  return [=](auto& window) {
    const auto& grid = FormOf(window).rtvNotas;
    std::vector<std::string> texts;
    for (int row = 1; row < grid.Rows(); ++row) texts.push_back(grid.TextMatrix(row, col));
    EXPECT_EQ(texts, expected);
  };
}

Gesture Selects(int cells) {
  return [=](auto& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    EXPECT_EQ(table->selectionModel()->selectedIndexes().size(), cells);
  };
}

const Gesture kEnter = Press(Qt::Key_Return);
const Gesture kBack = Press(Qt::Key_Return, Qt::ShiftModifier);
const Gesture kPaste = Press(Qt::Key_V, Qt::ControlModifier);
const Gesture kFill = Press(Qt::Key_D, Qt::ControlModifier);
const Gesture kRemove = Press(Qt::Key_Delete);
const Gesture kExtend = Press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);

/// A grid of six students below its heading.
class SheetKeysTest : public PruebaTest {
 protected:
  SheetKeysTest() {
    for (const auto* name : {"Ana", "Luis", "Eva", "Iván"}) form->rtvNotas.AddItem(name);
    form->rtvNotas.TextMatrix(1, 1, "");
  }
};

const std::vector<Play> kSheetPlays{
    {"EnterTakesTheGradeAndGoesDownTheColumn",
     Steps(On(0, 1), Write("5"), kEnter, StandsAt(1, 1), Write("10"), kEnter, StandsAt(2, 1),
           ListIs(false), Column(1, {"5", "10", "", "", "", ""})),
     {"inicio 1,1", "fin 3", "inicio 2,1", "fin 2"}},
    {"ShiftEnterTakesItAndGoesUp",
     Steps(On(2, 2), Write("5"), kBack, StandsAt(1, 2), Write("1"), kBack, StandsAt(0, 2), kBack,
           StandsAt(0, 2), Column(2, {"", "1", "5", "", "", ""})),
     {"inicio 3,2", "fin 3", "inicio 2,2", "fin 1"}},
    {"EnterGoesOverCellsThatNothingIsWrittenInto",
     Steps(On(3, 1), kEnter, StandsAt(4, 1), kBack, kBack, StandsAt(2, 1), On(5, 1), Write("5"),
           kEnter, StandsAt(5, 1), ListIs(false), kEnter, StandsAt(5, 1)),
     {"inicio 6,1", "fin 3"}},
    {"TabGoesRightAndShiftTabBack",
     Steps(On(0, 1), Write("5"), Press(Qt::Key_Tab), StandsAt(0, 2), Write("1"),
           Press(Qt::Key_Backtab, Qt::ShiftModifier), StandsAt(0, 1),
           Column(1, {"5", "", "", "", "", ""}), Column(2, {"1", "", "", "", "", ""})),
     {"inicio 1,1", "fin 3", "inicio 1,2", "fin 1"}},
    {"DeleteTakesTheGradeAwayAsTheBlankEntryDoes",
     Steps(Given(0, 1, "10"), Given(1, 1, "5"), On(0, 1), kRemove,
           Column(1, {" ", "5", "", "", "", ""}), On(1, 1), Press(Qt::Key_F2), kRemove,
           ListIs(false), Column(1, {" ", " ", "", "", "", ""})),
     {"inicio 1,1", "fin 0", "inicio 2,1", "inicio 2,1", "fin 0"}},
    {"ATextThatIsBeingWrittenTakesDeleteAndPasteForItself",
     Steps(OnClipboard("x"), On(0, 1), Write("15"), Press(Qt::Key_Home), kRemove, ListIs(true),
           Press(Qt::Key_End), kPaste, ListIs(true), Press(Qt::Key_Backspace), kEnter,
           Column(1, {"5", "", "", "", "", ""})),
     {"inicio 1,1", "fin 3"}},
    {"EscClosesTheListWhereverTheKeyboardIs",
     Steps(
         On(0, 1), Press(Qt::Key_F2),
         [](auto& window) { Of(window, "cmdPagina")->setFocus(Qt::MouseFocusReason); },
         ListIs(true), HasKeyboard("cmdPagina"), Press(Qt::Key_Escape), ListIs(false), IsVisible),
     {"inicio 1,1"}},
    {"EscLeavesASelectionFirst",
     Steps(On(0, 1), kExtend, kExtend, Press(Qt::Key_Escape), IsVisible, Selects(1)),
     {}},
    {"PastingWhileTheListIsOpenWithNothingWrittenIsForTheGrid",
     Steps(OnClipboard("5\n1\n"), ClickCell("rtvNotas", 0, 1), ListIs(true), kPaste, ListIs(false),
           Column(1, {"5", "1", "", "", "", ""})),
     {"inicio 1,1", "inicio 1,1", "fin 3", "inicio 2,1", "fin 1"}},
    {"WhatFindsNoPlaceIsLeftAndToldInOneMessage",
     Steps(Given(5, 1, "10"), OnClipboard("11\t5\tx\n5\t\t\n\"a\tb\"\n"), On(4, 1), kPaste,
           Column(1, {"", "", "", "", "", "5"}), Column(2, {"", "", "", "", "5", ""})),
     {"inicio 5,1", "inicio 5,2", "fin 3", "inicio 6,1", "fin 3"},
     {"3 casillas se han quedado como estaban:\n\n"
      "Fila 5 (Eva), columna «Nota»: «11» no está en la lista de esa casilla.\n"
      "Fila 5 (Eva), columna 4: «x» queda fuera de la tabla.\n"
      "Fila 7, columna «Nota»: «a\tb» queda fuera de la tabla."}},
    {"NamesAreHeldAgainstThePastedOnes",
     Steps(OnClipboard("Lengua\t5\nFrancés\t1\n"), On(0, 0), kPaste,
           Column(1, {"5", "1", "", "", "", ""}),
           Column(0, {"Lengua", "Inglés", "Ana", "Luis", "Eva", "Iván"})),
     {"inicio 1,1", "fin 3", "inicio 2,1", "fin 1"},
     {"Una casilla se ha quedado como estaba:\n\nFila 2, columna "
      "«Materia»: «Francés» no se puede poner en esa casilla."}},
    // The number is the one that the user counts.
    {"AColumnOutOfSightTakesNoText",
     Steps([](auto& window) { FormOf(window).rtvNotas.ColWidth(1, 0); },
           OnClipboard("Lengua\t5\tx\n"), On(0, 0), kPaste, Column(1, {"", "", "", "", "", ""}),
           Column(2, {"5", "", "", "", "", ""})),
     {"inicio 1,2", "fin 3"},
     {"Una casilla se ha quedado como estaba:\n\nFila 1 (Lengua), "
      "columna 3: «x» queda fuera de la tabla."}},
    {"ASelectionBeginsWhereTheFormHasGone",
     Steps(
         [](auto& window) {
           auto& form = FormOf(window);
           form.cmdPagina.Click = [&form] { form.rtvNotas.Row(4); };
         },
         OnClipboard("5\n"), On(0, 1), kEnter, "cmdPagina", StandsAt(3, 1),
         [](auto& window) { Of(window, "rtvNotas")->setFocus(); }, kExtend, kPaste,
         Column(1, {"", "", "", "5", "5", ""})),
     {"inicio 4,1", "fin 3", "inicio 5,1", "fin 3"}},
    {"OneTextIsPastedIntoAllThatIsSelected",
     Steps(OnClipboard("5\n"), DragFromTo(1, 1, 2, 2), kPaste,
           Column(1, {"", "5", "5", "", "", ""}), Column(2, {"", "5", "5", "", "", ""})),
     {"inicio 2,1", "fin 3", "inicio 2,2", "fin 3", "inicio 3,1", "fin 3", "inicio 3,2", "fin 3"}},
    {"AClickWithShiftSelectsAndOpensNoList",
     Steps(OnClipboard("5\n"), On(0, 1), ClickWithShift, ListIs(false), kPaste,
           Column(1, {"5", "5", "5", "", "", ""})),
     {"inicio 1,1", "fin 3", "inicio 2,1", "fin 3", "inicio 3,1", "fin 3"}},
    {"CtrlDFillsTheEmptyCellsBelow",
     Steps(Given(0, 1, "5"), Given(3, 1, "10"), On(0, 1), kFill,
           Column(1, {"5", "5", "5", "10", "5", "5"}), StandsAt(0, 1)),
     {"inicio 2,1", "fin 3", "inicio 3,1", "fin 3", "inicio 5,1", "fin 3", "inicio 6,1", "fin 3"}},
    {"CtrlDFillsUpAndDownFromTheCellThatTheSelectionBeganAt",
     Steps(Given(0, 1, "1"), Given(3, 1, "5"), DragFromTo(3, 1, 1, 1), kFill,
           Column(1, {"1", "5", "5", "5", "", ""}), On(0, 1), Write("10"), kBack,
           Press(Qt::Key_Down, Qt::ControlModifier),
           Press(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier), kFill,
           Column(1, {"5", "5", "5", "5", "", ""})),
     {"inicio 2,1", "fin 3", "inicio 3,1", "fin 3", "inicio 1,1", "fin 2", "inicio 1,1", "fin 3"}},
    {"CtrlDFillsTheColumnThatTheSelectionBeganInAlone",
     Steps(Given(1, 1, "5"), Given(1, 2, "1"), DragFromTo(1, 1, 3, 2), kFill,
           Column(1, {"", "5", "5", "5", "", ""}), Column(2, {"", "1", "", "", "", ""})),
     {"inicio 3,1", "fin 3", "inicio 4,1", "fin 3"}},
    {"CtrlDFillsWhatIsSelectedFromItsFirstCell",
     Steps(Given(1, 1, "5"), Given(2, 1, "10"), DragFromTo(1, 1, 3, 1), kFill,
           Column(1, {"", "5", "5", "5", "", ""}), On(1, 1), kExtend, kExtend, kRemove,
           Column(1, {"", " ", " ", " ", "", ""})),
     {"inicio 3,1", "fin 3", "inicio 4,1", "fin 3", "inicio 2,1", "fin 0", "inicio 3,1", "fin 0",
      "inicio 4,1", "fin 0"}},
    {"AnEmptyCellFillsNothing",
     Steps(Given(1, 1, "5"), On(0, 1), kFill, On(0, 0), kFill,
           Column(1, {"", "5", "", "", "", ""})),
     {}},
};

class SheetPlayTest : public SheetKeysTest, public ::testing::WithParamInterface<Play> {};

TEST_P(SheetPlayTest, IsHeardOf) { Run(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Sheet, SheetPlayTest, ::testing::ValuesIn(kSheetPlays), NameOfPlay);

TEST_F(SheetKeysTest, EnterWithNothingWrittenLeavesAnUngradedCellAsItWas) {
  form->rtvNotas.InicioEdicion = [this] { form->rtvNotas.ListaAnadir(1, "5", 5); };
  Run(On(0, 1), Press(Qt::Key_F2), ListIs(true), kEnter, ListIs(false), StandsAt(1, 1),
      Column(1, {"", "", "", "", "", ""}));
  EXPECT_THAT(seen, IsEmpty()) << "no edit has ended";
}

TEST_F(SheetKeysTest, DeleteEditsAnEmptyCellOnlyWhereSomethingIsKnownToStandBehindIt) {
  screen.StoredData = [](const Form&, const Retivo&, int row, int) -> std::optional<std::int32_t> {
    if (row == 1) return 0;
    if (row == 2) return 7;
    return std::nullopt;
  };
  Run(On(0, 1), kRemove, On(1, 1), kRemove, On(2, 1), kRemove,
      Column(1, {"", " ", "", "", "", ""}));
  EXPECT_THAT(seen, ElementsAre("inicio 2,1", "fin 0"));
}

TEST_F(SheetKeysTest, DeleteSaysWhereNoBlankEntryIsUnlessItIsOneCell) {
  form->rtvNotas.TextMatrix(1, 1, "10");
  form->rtvNotas.InicioEdicion = [this] { form->rtvNotas.ListaAnadir(1, "5", 5); };
  Run(
      On(0, 1), kRemove, [this](auto&) { EXPECT_THAT(messages, IsEmpty()); }, kExtend, kRemove,
      Column(1, {"10", "", "", "", "", ""}));
  EXPECT_THAT(messages, ElementsAre("Una casilla se ha quedado como estaba:\n\nFila 1 (Lengua), "
                                    "columna «Nota»: «» no se puede dejar en blanco."));
}

TEST_F(SheetKeysTest, CtrlUpAndDownMoveInTheGridThoughTheFormHasTheArrows) {
  form->OnKey = [this](int& key) {
    form->Log("tecla " + std::to_string(key));
    if (key == 38 || key == 40) key = 0;
  };
  Run(On(0, 1), Press(Qt::Key_Down), StandsAt(0, 1), Press(Qt::Key_Down, Qt::ControlModifier),
      StandsAt(1, 1), Press(Qt::Key_Up, Qt::ControlModifier), StandsAt(0, 1));
  // Ctrl itself is a key too.
  EXPECT_THAT(seen, ElementsAre("tecla 40", "tecla 17", "tecla 17"));
}

TEST_F(SheetKeysTest, GoingBackSelectsTheCellAlone) {
  const auto one = [](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    EXPECT_THAT(table->selectionModel()->selectedIndexes(), ElementsAre(table->currentIndex()));
  };
  // By the window system, which knows that Shift is held: it is to select nothing here.
  const auto held = [](Qt::Key key) {
    return [key](qt::FormWindow& window) {
      QTest::keyClick(window.windowHandle(), key, Qt::ShiftModifier);
    };
  };
  Run(On(3, 1), Write("5"), held(Qt::Key_Return), one, StandsAt(2, 1), held(Qt::Key_Return), one,
      StandsAt(1, 1), held(Qt::Key_Backtab), one, StandsAt(0, 2));
}

TEST_F(SheetKeysTest, APastedColumnIsPutInByEdits) {
  screen.EditEnding = [this](const Form&, const Retivo& grid, int entry) {
    form->Log("anfitrión " + std::to_string(grid.Row()) + " " + std::to_string(entry));
  };
  Run(OnClipboard("5\r\n  notable \r\n1\r\n"), On(1, 1), kPaste,
      Column(1, {"", "5", "Notable", "1", "", ""}), StandsAt(1, 1));
  EXPECT_THAT(seen, ElementsAre("inicio 2,1", "anfitrión 2 3", "fin 3", "inicio 3,1",
                                "anfitrión 3 4", "fin 4", "inicio 4,1", "anfitrión 4 1", "fin 1"));
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SheetKeysTest, ACellThatItsEditClosesIsLeftAsItWas) {
  form->rtvNotas.InicioEdicion = [this] {
    form->rtvNotas.ListaAnadir(form->rtvNotas.Col(), "5", 5);
    if (form->rtvNotas.Row() == 2) form->rtvNotas.ListaLimpiar(form->rtvNotas.Col());
    if (form->rtvNotas.Row() == 3) form->rtvNotas.ColWidth(1, 0);
  };
  Run(OnClipboard("5\n5\n5\n"), On(0, 1), kPaste, Column(1, {"5", "", "", "", "", ""}));
  EXPECT_THAT(messages, ElementsAre("2 casillas se han quedado como estaban:\n\n"
                                    "Fila 2 (Inglés), columna «Nota»: «5» no se puede poner en esa "
                                    "casilla.\nFila 3 (Ana), columna «Nota»: «5» no se puede poner "
                                    "en esa casilla."));
}

TEST_F(SheetKeysTest, AnErrorInAPastedEditEndsTheFormAsInATypedOne) {
  form->rtvNotas.FinEdicion = [this] {
    form->Log("fin");
    if (form->rtvNotas.Row() == 2) throw RuntimeError(ErrorNumber::MissingMember);
  };
  Then(OnClipboard("5\n5\n5\n"), On(0, 1), kPaste);
  EXPECT_THROW(form->ShowModal(), RuntimeError);
  EXPECT_EQ(std::count(form->log.begin(), form->log.end(), "fin"), 2);
}

TEST_F(SheetKeysTest, ManyLeftTextsStandInTheDetails) {
  QString details;
  screen.MessageShown = [&details](QMessageBox& box) {
    details = box.detailedText();
    EXPECT_TRUE(box.text().endsWith("... y 2 más, que están en los detalles."));
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_FALSE(box.isVisible());
    box.accept();
  };
  Run(OnClipboard("a\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\nl\n"), On(0, 1), kPaste);
  EXPECT_EQ(details.split('\n').size(), 12);
}

TEST_F(SheetKeysTest, LongPastingShowsThatItWorks) {
  const auto spin = [](qint64 milliseconds) {
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < milliseconds;) continue;
  };
  std::vector<std::string> shown;
  form->rtvNotas.InicioEdicion = [this, spin, &shown] {
    shown.push_back(CellText(*screen.ActiveWindow(), "rtvNotas", 0, 1) +
                    (QGuiApplication::overrideCursor() != nullptr ? " reloj" : ""));
    form->rtvNotas.ListaAnadir(1, "5", 5);
    spin(120);
  };
  Run(OnClipboard("5\n5\n5\n5\n"), On(0, 1), kPaste);
  ASSERT_EQ(shown.size(), 4);
  EXPECT_EQ(shown[0], "");
  EXPECT_EQ(shown[1], "5") << "what is in already is seen";
  EXPECT_EQ(shown[3], "5 reloj");
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SheetKeysTest, PastingEndsWhenTheProgramDoes) {
  form->rtvNotas.InicioEdicion = [this] {
    form->Log("inicio");
    form->rtvNotas.ListaAnadir(1, "5", 5);
    if (form->rtvNotas.Row() == 2) screen.Leave();
  };
  Then([this](auto&) { form->log.clear(); }, OnClipboard("5\n5\nx\n5\n"), On(0, 1), kPaste);
  form->ShowModal();
  EXPECT_THAT(form->log, ElementsAre("inicio", "fin 0", "inicio", "descarga"));
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SheetKeysTest, RoomIsSharedOutAndTheFormsMeasuresStay) {
  Run([this](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    auto width = 0;
    for (int col = 0; col < 3; ++col) {
      EXPECT_GE(table->columnWidth(col), qt::Pixels(form->rtvNotas.ColWidth(col))) << col;
      width += table->columnWidth(col);
    }
    EXPECT_GT(width, table->viewport()->width() - 3);
    EXPECT_LE(width, table->viewport()->width());
    EXPECT_EQ(form->rtvNotas.ColWidth(0), 1500);
    // A press on the heading after that is no drag.
    QTest::mouseClick(table->horizontalHeader()->viewport(), Qt::LeftButton, {}, {10, 5});
  });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(SheetKeysTest, ACutTextEndsInDotsAndIsToldWhole) {
  form->rtvNotas.TextMatrix(0, 1, "Procedimientos y destrezas");
  form->rtvNotas.ColWidth(0, 4000);
  Run([](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    EXPECT_EQ(table->horizontalHeader()->textElideMode(), Qt::ElideRight);
    EXPECT_EQ(table->textElideMode(), Qt::ElideRight);
    EXPECT_EQ(table->model()->headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(),
              "Procedimientos y destrezas");
    EXPECT_EQ(table->model()->index(0, 0).data(Qt::ToolTipRole).toString(), "Lengua");
  });
}

}  // namespace
}  // namespace quorvane::test
