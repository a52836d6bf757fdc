#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

QTableView& Table(const qt::FormWindow& window) { return *Of<QTableView>(window, "msgRejilla"); }

/// So many rows below the heading.
Gesture HasRows(int rows) {
  return [=](auto& window) { EXPECT_EQ(Table(window).model()->rowCount(), rows); };
}

Gesture HasText(int row, const std::string& text) {
  return [=](auto& window) { EXPECT_EQ(CellText(window, "msgRejilla", row), text); };
}

Gesture IsOnTop(int row) {
  return [=](auto& window) { EXPECT_EQ(Table(window).rowAt(0), row); };
}

/// For the form, which counts the heading.
Gesture IsOnRow(int row) {
  return [=](auto& window) {
    const auto& grid = FormOf(window).msgRejilla;
    EXPECT_EQ(std::pair(grid.Row(), grid.RowSel()), std::pair(row, row));
  };
}

const std::vector<Play> kGridPlays{
    {"TheFixedRowIsTheHeading",
     Steps(HasRows(3), HasText(1, "Matemáticas (1º ESO)"),
           [](auto& window) {
             EXPECT_EQ(Table(window).model()->headerData(1, Qt::Horizontal).toString(), "1ª Eval.");
             EXPECT_TRUE(Table(window).horizontalHeader()->isVisible());
           }),
     {}},
    {"AColumnOfWidth0IsHidden",
     [](auto& window) {
       EXPECT_TRUE(Table(window).isColumnHidden(3));
       EXPECT_FALSE(Table(window).isColumnHidden(2));
     },
     {}},
    {"MarksAreCentred",
     [](auto& window) {
       const auto cell = Table(window).model()->index(0, 1);
       EXPECT_TRUE((cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHCenter) != 0);
     },
     {}},
    {"TheRowFollowsMouseAndKeyboard",
     Steps(ClickCell("msgRejilla", 2), IsOnRow(3), Key("msgRejilla", Qt::Key_Up), IsOnRow(2),
           Key("msgRejilla", Qt::Key_Home, Qt::ControlModifier), IsOnRow(1)),
     {}},
    {"TypingALetterFindsARow", Steps(Type("msgRejilla", "mú"), IsOnRow(3)), {}},
    {"DoubleClickAndEnterAreAlike",
     Steps(DoubleClickCell("msgRejilla", 1, 1), Key("msgRejilla", Qt::Key_Return)),
     {"rejilla 2", "rejilla 2"}},
    {"ADoubleClickBesideTheRowsIsOneOnTheGrid",
     [](auto& window) {
       const auto& table = Table(window);
       const QPoint below(5, table.viewport()->height() - 2);
       ASSERT_FALSE(table.indexAt(below).isValid());
       QTest::mouseDClick(table.viewport(), Qt::RightButton, {}, below);
       QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, below);
     },
     {"rejilla 1"}},
};

INSTANTIATE_TEST_SUITE_P(Grids, PlayTest, ::testing::ValuesIn(kGridPlays), NameOfPlay);

using GridsTest = PruebaTest;

TEST_F(GridsTest, AGridWithoutFixedRowShowsNoHeading) {
  form->msgRejilla.FixedRows(0);
  Run(HasRows(4),
      [](auto& window) { EXPECT_FALSE(Table(window).horizontalHeader()->isVisible()); });
}

TEST_F(GridsTest, TheFirstColumnStaysInSightWhenTheGridIsScrolledToTheRight) {
  for (int col = 0; col < form->rtvNotas.Cols(); ++col)
    if (form->rtvNotas.ColWidth(col) != 0) form->rtvNotas.ColWidth(col, 6000);
  Run([](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "rtvNotas");
    const auto* names = table->findChild<QTableView*>("columnaFija");
    auto* bar = table->horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    EXPECT_FALSE(names->isVisible());

    bar->setValue(bar->maximum());
    EXPECT_TRUE(names->isVisible());
    EXPECT_LE(names->width(), table->viewport()->width() / 2);
    EXPECT_EQ(names->indexAt({3, 3}), table->model()->index(0, 0));
    for (int row = 0; row < table->model()->rowCount(); ++row) {
      const auto cell = table->model()->index(row, 0);
      EXPECT_EQ(names->viewport()->mapTo(table, names->visualRect(cell).topLeft()).y(),
                table->viewport()->mapTo(table, table->visualRect(cell).topLeft()).y());
    }

    // The cell that becomes current doesn't lie below it.
    table->setCurrentIndex(table->model()->index(0, 1));
    EXPECT_GE(table->visualRect(table->currentIndex()).left(), names->width());

    const auto second = table->model()->index(1, 0);
    QTest::mouseClick(names->viewport(), Qt::LeftButton, {}, names->visualRect(second).center());
    EXPECT_EQ(table->currentIndex(), second);
    EXPECT_TRUE(table->hasFocus());

    bar->setValue(0);
    EXPECT_FALSE(names->isVisible());
  });
}

TEST_F(GridsTest, TheFirstColumnFollowsRowsOfAllHeightsUpAndDown) {
  for (int i = 0; i < 30; ++i)
    form->rtvNotas.AddItem(i % 3 == 0 ? "Ciencias de la Naturaleza y del Medio " + std::to_string(i)
                                      : "Lengua " + std::to_string(i));
  form->rtvNotas.ColWidth(1, 6000);
  form->rtvNotas.ColWidth(2, 6000);
  Run([](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "rtvNotas");
    const auto* names = table->findChild<QTableView*>("columnaFija");
    const auto expectBeside = [&](int scrolled) {
      QCoreApplication::processEvents();
      ASSERT_TRUE(names->isVisible());
      auto beside = 0;
      for (int row = 0; row < table->model()->rowCount(); ++row) {
        const auto cell = table->visualRect(table->model()->index(row, 2));
        if (!cell.intersects(table->viewport()->rect())) continue;
        const auto name = names->visualRect(names->model()->index(row, 0));
        EXPECT_EQ(names->viewport()->mapTo(table, name.topLeft()).y(),
                  table->viewport()->mapTo(table, cell.topLeft()).y())
            << row << " at " << scrolled;
        EXPECT_EQ(name.height(), cell.height()) << row << " at " << scrolled;
        ++beside;
      }
      EXPECT_GT(beside, 2);
    };
    auto* down = table->verticalScrollBar();
    auto* right = table->horizontalScrollBar();
    QCoreApplication::processEvents();
    ASSERT_GT(down->maximum(), 3);
    ASSERT_NE(table->rowHeight(2), table->rowHeight(3)) << "a long name goes on in another line";
    right->setValue(right->maximum());
    for (const auto at : {0, 1, 2, down->maximum() / 2, down->maximum(), 3}) {
      down->setValue(at);
      expectBeside(at);
    }
    // The other way round: down first, and then to the right.
    right->setValue(0);
    down->setValue(down->maximum());
    right->setValue(right->maximum());
    expectBeside(down->maximum());
    // A width that makes other heights.
    table->setColumnWidth(0, table->columnWidth(0) * 2);
    expectBeside(down->value());
  });
}

TEST_F(GridsTest, TheTableFollowsTheGridsRow) {
  form->cmdPagina.Click = [this] {
    form->msgRejilla.RowPosition(1, 3);
    form->msgRejilla.Row(3);
  };
  Run("cmdPagina", HasText(2, "Lengua (1º ESO)"),
      [](auto& window) { EXPECT_EQ(Table(window).currentIndex().row(), 2); });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(GridsTest, AGridThatIsRebuiltAndEmptiedIsShownSo) {
  form->cmdPagina.Click = [this] {
    auto& grid = form->msgRejilla;
    grid.Clear();
    grid.Rows(1);
    grid.Cols(1);
    grid.FixedRows(0);
    grid.Rows(0);
  };
  Run("cmdPagina", HasRows(0), Key("msgRejilla", Qt::Key_Down), Key("msgRejilla", Qt::Key_Up),
      [this](auto&) { EXPECT_EQ(form->msgRejilla.Row(), -1); });
}

// What paints in the middle of a rebuild must not reach for rows that have gone.
TEST_F(GridsTest, PaintingWhileTheGridIsBeingRebuiltShowsTheOldCells) {
  form->cmdPagina.Click = [this] {
    form->msgRejilla.Rows(1);
    screen.ActiveWindow()->repaint();
    QTest::qWait(60);
    screen.Pulse();
    form->msgRejilla.AddItem("Nueva");
  };
  Run("cmdPagina", HasText(0, "Nueva"));
}

TEST_F(GridsTest, TopRowBringsARowIntoSightAndBackOnceTheUserHasScrolledAway) {
  for (int i = 0; i < 60; ++i) form->msgRejilla.AddItem("Materia " + std::to_string(i));
  form->cmdPagina.Click = [this] { form->msgRejilla.TopRow(40); };
  const auto scroll = [](auto& window) { Table(window).verticalScrollBar()->setValue(3); };
  // What another control does moves nothing.
  Run("cmdPagina", IsOnTop(39), scroll, IsOnTop(3), "chkTodo", IsOnTop(3), "cmdPagina",
      IsOnTop(39));
}

}  // namespace
}  // namespace quorvane::test
