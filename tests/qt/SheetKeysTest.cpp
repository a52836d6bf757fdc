// A grid of grades is worked on as a spreadsheet is.

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
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

/// A grid of six students below its heading; list cells are the columns 1 and 2.
class SheetKeysTest : public PruebaTest {
 protected:
  SheetKeysTest() {
    for (const auto* name : {"Ana", "Luis", "Eva", "Iván"}) form->rtvNotas.AddItem(name);
    form->rtvNotas.TextMatrix(1, 1, "");
  }

  static Gesture Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
    return [=](qt::FormWindow& window) { QTest::keyClick(window.focusWidget(), key, with); };
  }
  static Gesture Write(const char* text) {
    return [=](qt::FormWindow& window) {
      // As many keys as letters: the first opens the list, which takes the others.
      for (const auto* letter = text; *letter != 0; ++letter)
        QTest::keyClick(window.focusWidget(), *letter);
    };
  }
  /// The keyboard on that cell, whose list is closed.
  static Gesture StandOn(int row, int col) {
    return [=](qt::FormWindow& window) {
      auto* table = Of<QTableView>(window, "rtvNotas");
      table->setFocus();
      table->setCurrentIndex(table->model()->index(row, col));
    };
  }
  static Gesture OnClipboard(const char* text) {
    return [=](auto&) { QGuiApplication::clipboard()->setText(text); };
  }
  static Gesture DragFromTo(int row, int col, int lastRow, int lastCol) {
    return [=](qt::FormWindow& window) {
      auto* table = Of<QTableView>(window, "rtvNotas");
      const auto centre = [table](int at, int column) {
        return table->visualRect(table->model()->index(at, column)).center();
      };
      const auto move = [table, centre](int at, int column) {
        QMouseEvent event(QEvent::MouseMove, centre(at, column),
                          table->viewport()->mapToGlobal(centre(at, column)), Qt::NoButton,
                          Qt::LeftButton, {});
        QApplication::sendEvent(table->viewport(), &event);
      };
      QTest::mousePress(table->viewport(), Qt::LeftButton, {}, centre(row, col));
      move(row, col);
      move(lastRow, lastCol);
      QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, centre(lastRow, lastCol));
      EXPECT_EQ(OpenedList(window), nullptr);
    };
  }
  /// The texts of that column, from the first student down.
  Gesture Column(int col, const std::vector<std::string>& expected) {
    return [this, col, expected](auto&) {
      std::vector<std::string> texts;
      for (int row = 1; row < form->rtvNotas.Rows(); ++row)
        texts.push_back(form->rtvNotas.TextMatrix(row, col));
      EXPECT_EQ(texts, expected);
    };
  }
  Gesture StandsAt(int row, int col) {
    return [=, this](auto&) {
      EXPECT_EQ(std::pair(form->rtvNotas.Row() - 1, form->rtvNotas.Col()), std::pair(row, col));
    };
  }
  static Gesture ListIs(bool open) {
    return [=](auto& window) { EXPECT_EQ(OpenedList(window) != nullptr, open); };
  }

  const Gesture enter = Press(Qt::Key_Return);
  const Gesture back = Press(Qt::Key_Return, Qt::ShiftModifier);
  const Gesture paste = Press(Qt::Key_V, Qt::ControlModifier);
  const Gesture fill = Press(Qt::Key_D, Qt::ControlModifier);
  const Gesture remove = Press(Qt::Key_Delete);
  const Gesture extend = Press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
};

TEST_F(SheetKeysTest, EnterTakesTheGradeAndGoesDownTheColumn) {
  Run(StandOn(0, 1), Write("5"), enter, StandsAt(1, 1), Write("10"), enter, StandsAt(2, 1),
      ListIs(false), Column(1, {"5", "10", "", "", "", ""}));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3", "inicio 2,1", "fin 2"));
}

TEST_F(SheetKeysTest, ShiftEnterTakesItAndGoesUp) {
  Run(StandOn(2, 2), Write("5"), back, StandsAt(1, 2), Write("1"), back, StandsAt(0, 2), back,
      StandsAt(0, 2), Column(2, {"", "1", "5", "", "", ""}));
}

TEST_F(SheetKeysTest, EnterGoesOverCellsThatNothingIsWrittenInto) {
  Run(StandOn(3, 1), enter, StandsAt(4, 1), back, back, StandsAt(2, 1), StandOn(5, 1), Write("5"),
      enter, StandsAt(5, 1), ListIs(false), enter, StandsAt(5, 1));
  EXPECT_THAT(seen, ElementsAre("inicio 6,1", "fin 3"));
}

TEST_F(SheetKeysTest, TabGoesRightAndShiftTabBack) {
  Run(StandOn(0, 1), Write("5"), Press(Qt::Key_Tab), StandsAt(0, 2), Write("1"),
      Press(Qt::Key_Backtab, Qt::ShiftModifier), StandsAt(0, 1),
      Column(1, {"5", "", "", "", "", ""}), Column(2, {"1", "", "", "", "", ""}));
}

TEST_F(SheetKeysTest, EnterWithNothingWrittenLeavesAnUngradedCellAsItWas) {
  form->rtvNotas.InicioEdicion = [this] { form->rtvNotas.ListaAnadir(1, "5", 5); };
  Run(StandOn(0, 1), Press(Qt::Key_F2), ListIs(true), enter, ListIs(false), StandsAt(1, 1),
      Column(1, {"", "", "", "", "", ""}));
  EXPECT_THAT(seen, IsEmpty()) << "no edit has ended";
}

TEST_F(SheetKeysTest, DeleteTakesTheGradeAwayAsTheBlankEntryDoes) {
  form->rtvNotas.TextMatrix(1, 1, "10");
  form->rtvNotas.TextMatrix(2, 1, "5");
  Run(StandOn(0, 1), remove, Column(1, {" ", "5", "", "", "", ""}), StandOn(1, 1),
      Press(Qt::Key_F2), remove, ListIs(false), Column(1, {" ", " ", "", "", "", ""}));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 0", "inicio 2,1", "inicio 2,1", "fin 0"));
}

TEST_F(SheetKeysTest, DeleteEditsAnEmptyCellOnlyWhereSomethingIsKnownToStandBehindIt) {
  screen.StoredData = [](const Form&, const Retivo&, int row, int) -> std::optional<std::int32_t> {
    if (row == 1) return 0;
    if (row == 2) return 7;
    return std::nullopt;
  };
  Run(StandOn(0, 1), remove, StandOn(1, 1), remove, StandOn(2, 1), remove,
      Column(1, {"", " ", "", "", "", ""}));
  EXPECT_THAT(seen, ElementsAre("inicio 2,1", "fin 0"));
}

TEST_F(SheetKeysTest, ATextThatIsBeingWrittenTakesDeleteAndPasteForItself) {
  Run(OnClipboard("x"), StandOn(0, 1), Write("15"), Press(Qt::Key_Home), remove, ListIs(true),
      Press(Qt::Key_End), paste, ListIs(true), Press(Qt::Key_Backspace), enter,
      Column(1, {"5", "", "", "", "", ""}));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3"));
}

TEST_F(SheetKeysTest, DeleteSaysWhereNoBlankEntryIsUnlessItIsOneCell) {
  form->rtvNotas.TextMatrix(1, 1, "10");
  form->rtvNotas.InicioEdicion = [this] { form->rtvNotas.ListaAnadir(1, "5", 5); };
  Run(
      StandOn(0, 1), remove, [this](auto&) { EXPECT_THAT(messages, IsEmpty()); }, extend, remove,
      Column(1, {"10", "", "", "", "", ""}));
  EXPECT_THAT(messages, ElementsAre("Una casilla se ha quedado como estaba:\n\nFila 1 (Lengua), "
                                    "columna «Nota»: «» no se puede dejar en blanco."));
}

TEST_F(SheetKeysTest, CtrlUpAndDownMoveInTheGridThoughTheFormHasTheArrows) {
  form->OnKey = [this](int& key) {
    form->Log("tecla " + std::to_string(key));
    if (key == 38 || key == 40) key = 0;
  };
  Run(StandOn(0, 1), Press(Qt::Key_Down), StandsAt(0, 1), Press(Qt::Key_Down, Qt::ControlModifier),
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
  Run(StandOn(3, 1), Write("5"), held(Qt::Key_Return), one, StandsAt(2, 1), held(Qt::Key_Return),
      one, StandsAt(1, 1), held(Qt::Key_Backtab), one, StandsAt(0, 2));
}

TEST_F(SheetKeysTest, ASelectionBeginsWhereTheFormHasGone) {
  form->cmdPagina.Click = [this] { form->rtvNotas.Row(4); };
  Run(
      OnClipboard("5\n"), StandOn(0, 1), enter, "cmdPagina", StandsAt(3, 1),
      [](qt::FormWindow& window) { Of(window, "rtvNotas")->setFocus(); }, extend, paste,
      Column(1, {"", "", "", "5", "5", ""}));
}

TEST_F(SheetKeysTest, EscClosesTheListWhereverTheKeyboardIs) {
  const auto takeKeyboard = [](qt::FormWindow& window) {
    Of(window, "cmdPagina")->setFocus(Qt::MouseFocusReason);
    ASSERT_NE(OpenedList(window), nullptr);
    EXPECT_EQ(window.focusWidget(), Of(window, "cmdPagina"));
  };
  Run(StandOn(0, 1), Press(Qt::Key_F2), takeKeyboard, Press(Qt::Key_Escape), ListIs(false),
      [](qt::FormWindow& window) { EXPECT_TRUE(window.isVisible()); });
}

TEST_F(SheetKeysTest, EscLeavesASelectionFirst) {
  Run(StandOn(0, 1), extend, extend, Press(Qt::Key_Escape), [](qt::FormWindow& window) {
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Of<QTableView>(window, "rtvNotas")->selectionModel()->selectedIndexes().size(), 1);
  });
}

TEST_F(SheetKeysTest, APastedColumnIsPutInByEdits) {
  screen.EditEnding = [this](const Form&, const Retivo& grid, int entry) {
    form->Log("anfitrión " + std::to_string(grid.Row()) + " " + std::to_string(entry));
  };
  Run(OnClipboard("5\r\n  notable \r\n1\r\n"), StandOn(1, 1), paste,
      Column(1, {"", "5", "Notable", "1", "", ""}), StandsAt(1, 1));
  EXPECT_THAT(seen, ElementsAre("inicio 2,1", "anfitrión 2 3", "fin 3", "inicio 3,1",
                                "anfitrión 3 4", "fin 4", "inicio 4,1", "anfitrión 4 1", "fin 1"));
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SheetKeysTest, PastingWhileTheListIsOpenWithNothingWrittenIsForTheGrid) {
  Run(OnClipboard("5\n1\n"), ClickCell("rtvNotas", 0, 1), ListIs(true), paste, ListIs(false),
      Column(1, {"5", "1", "", "", "", ""}));
}

TEST_F(SheetKeysTest, WhatFindsNoPlaceIsLeftAndToldInOneMessage) {
  form->rtvNotas.TextMatrix(6, 1, "10");
  Run(OnClipboard("11\t5\tx\n5\t\t\n\"a\tb\"\n"), StandOn(4, 1), paste,
      Column(1, {"", "", "", "", "", "5"}), Column(2, {"", "", "", "", "5", ""}));
  EXPECT_THAT(messages,
              ElementsAre("3 casillas se han quedado como estaban:\n\n"
                          "Fila 5 (Eva), columna «Nota»: «11» no está en la lista de esa casilla.\n"
                          "Fila 5 (Eva), columna 4: «x» queda fuera de la tabla.\n"
                          "Fila 7, columna «Nota»: «a\tb» queda fuera de la tabla."));
}

TEST_F(SheetKeysTest, NamesAreHeldAgainstThePastedOnes) {
  Run(OnClipboard("Lengua\t5\nFrancés\t1\n"), StandOn(0, 0), paste,
      Column(1, {"5", "1", "", "", "", ""}),
      Column(0, {"Lengua", "Inglés", "Ana", "Luis", "Eva", "Iván"}));
  EXPECT_THAT(messages, ElementsAre("Una casilla se ha quedado como estaba:\n\nFila 2, columna "
                                    "«Materia»: «Francés» no se puede poner en esa casilla."));
}

TEST_F(SheetKeysTest, AColumnOutOfSightTakesNoText) {
  form->rtvNotas.ColWidth(1, 0);
  Run(OnClipboard("5\t1\n"), StandOn(0, 0), OnClipboard("Lengua\t5\tx\n"), paste,
      Column(1, {"", "", "", "", "", ""}), Column(2, {"5", "", "", "", "", ""}));
  // The number is the one that the user counts.
  EXPECT_THAT(messages, ElementsAre("Una casilla se ha quedado como estaba:\n\nFila 1 (Lengua), "
                                    "columna 3: «x» queda fuera de la tabla."));
}

TEST_F(SheetKeysTest, ACellThatItsEditClosesIsLeftAsItWas) {
  form->rtvNotas.InicioEdicion = [this] {
    form->rtvNotas.ListaAnadir(form->rtvNotas.Col(), "5", 5);
    if (form->rtvNotas.Row() == 2) form->rtvNotas.ListaLimpiar(form->rtvNotas.Col());
    if (form->rtvNotas.Row() == 3) form->rtvNotas.ColWidth(1, 0);
  };
  Run(OnClipboard("5\n5\n5\n"), StandOn(0, 1), paste, Column(1, {"5", "", "", "", "", ""}));
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
  Then(OnClipboard("5\n5\n5\n"), StandOn(0, 1), paste);
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
  Run(OnClipboard("a\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\nl\n"), StandOn(0, 1), paste);
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
  Run(OnClipboard("5\n5\n5\n5\n"), StandOn(0, 1), paste);
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
  Then([this](auto&) { form->log.clear(); }, OnClipboard("5\n5\nx\n5\n"), StandOn(0, 1), paste);
  form->ShowModal();
  EXPECT_THAT(form->log, ElementsAre("inicio", "fin 0", "inicio", "descarga"));
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SheetKeysTest, OneTextIsPastedIntoAllThatIsSelected) {
  Run(OnClipboard("5\n"), DragFromTo(1, 1, 2, 2), paste, Column(1, {"", "5", "5", "", "", ""}),
      Column(2, {"", "5", "5", "", "", ""}));
}

TEST_F(SheetKeysTest, AClickWithShiftSelectsAndOpensNoList) {
  const auto click = [](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      table->visualRect(table->model()->index(2, 1)).center());
  };
  Run(OnClipboard("5\n"), StandOn(0, 1), click, ListIs(false), paste,
      Column(1, {"5", "5", "5", "", "", ""}));
}

TEST_F(SheetKeysTest, CtrlDFillsTheEmptyCellsBelow) {
  form->rtvNotas.TextMatrix(1, 1, "5");
  form->rtvNotas.TextMatrix(4, 1, "10");
  Run(StandOn(0, 1), fill, Column(1, {"5", "5", "5", "10", "5", "5"}), StandsAt(0, 1));
}

TEST_F(SheetKeysTest, CtrlDFillsUpAndDownFromTheCellThatTheSelectionBeganAt) {
  form->rtvNotas.TextMatrix(1, 1, "1");
  form->rtvNotas.TextMatrix(4, 1, "5");
  Run(DragFromTo(3, 1, 1, 1), fill, Column(1, {"1", "5", "5", "5", "", ""}), StandOn(0, 1),
      Write("10"), back, Press(Qt::Key_Down, Qt::ControlModifier),
      Press(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier), fill,
      Column(1, {"5", "5", "5", "5", "", ""}));
}

TEST_F(SheetKeysTest, CtrlDFillsTheColumnThatTheSelectionBeganInAlone) {
  form->rtvNotas.TextMatrix(2, 1, "5");
  form->rtvNotas.TextMatrix(2, 2, "1");
  Run(DragFromTo(1, 1, 3, 2), fill, Column(1, {"", "5", "5", "5", "", ""}),
      Column(2, {"", "1", "", "", "", ""}));
}

TEST_F(SheetKeysTest, CtrlDFillsWhatIsSelectedFromItsFirstCell) {
  form->rtvNotas.TextMatrix(2, 1, "5");
  form->rtvNotas.TextMatrix(3, 1, "10");
  Run(DragFromTo(1, 1, 3, 1), fill, Column(1, {"", "5", "5", "5", "", ""}), StandOn(1, 1), extend,
      extend, remove, Column(1, {"", " ", " ", " ", "", ""}));
}

TEST_F(SheetKeysTest, AnEmptyCellFillsNothing) {
  form->rtvNotas.TextMatrix(2, 1, "5");
  Run(StandOn(0, 1), fill, StandOn(0, 0), fill, Column(1, {"", "5", "", "", "", ""}));
  EXPECT_THAT(seen, IsEmpty());
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
