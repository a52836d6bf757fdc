#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "adapters/qt/views/Units.h"
#include "tests/qt/PruebaTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using GridsTest = PruebaTest;

TEST_F(GridsTest, TheFixedRowIsTheHeading) {
  Run([](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "msgRejilla");
    EXPECT_EQ(table->model()->rowCount(), 3);
    EXPECT_EQ(table->model()->headerData(1, Qt::Horizontal).toString(), "1ª Eval.");
    EXPECT_TRUE(table->horizontalHeader()->isVisible());
    EXPECT_EQ(CellText(window, "msgRejilla", 1, 0), "Matemáticas (1º ESO)");
  });
}

TEST_F(GridsTest, AGridWithoutFixedRowShowsNoHeading) {
  form->msgRejilla.FixedRows(0);
  Run([](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "msgRejilla");
    EXPECT_EQ(table->model()->rowCount(), 4);
    EXPECT_FALSE(table->horizontalHeader()->isVisible());
  });
}

TEST_F(GridsTest, AColumnOfWidth0IsHidden) {
  Run([](qt::FormWindow& window) {
    EXPECT_TRUE(Of<QTableView>(window, "msgRejilla")->isColumnHidden(3));
    EXPECT_FALSE(Of<QTableView>(window, "msgRejilla")->isColumnHidden(2));
  });
}

TEST_F(GridsTest, MarksAreCentred) {
  Run([](qt::FormWindow& window) {
    const auto* cells = Of<QTableView>(window, "msgRejilla")->model();
    const auto alignment = cells->index(0, 1).data(Qt::TextAlignmentRole).toInt();
    EXPECT_TRUE((alignment & Qt::AlignHCenter) != 0);
  });
}

TEST_F(GridsTest, TheRowFollowsMouseAndKeyboard) {
  Run([this](qt::FormWindow& window) {
    ClickCell(window, "msgRejilla", 2, 0);
    EXPECT_EQ(form->msgRejilla.RowSel(), 3);
    Key(window, "msgRejilla", Qt::Key_Up);
    EXPECT_EQ(form->msgRejilla.RowSel(), 2);
    Key(window, "msgRejilla", Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(form->msgRejilla.Row(), 1);
  });
}

TEST_F(GridsTest, DoubleClickAndEnterAreAlike) {
  Run([](qt::FormWindow& window) {
    DoubleClickCell(window, "msgRejilla", 1, 1);
    Key(window, "msgRejilla", Qt::Key_Return);
  });
  EXPECT_THAT(seen, ElementsAre("rejilla 2", "rejilla 2"));
}

TEST_F(GridsTest, ADoubleClickBesideTheRowsIsOneOnTheGrid) {
  Run([](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "msgRejilla");
    const QPoint below(5, table->viewport()->height() - 2);
    ASSERT_FALSE(table->indexAt(below).isValid());
    QTest::mouseDClick(table->viewport(), Qt::RightButton, {}, below);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, {}, below);
  });
  EXPECT_THAT(seen, ElementsAre("rejilla 1"));
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

TEST_F(GridsTest, TheTableFollowsTheGridsRow) {
  form->cmdPagina.Click = [this] {
    form->msgRejilla.RowPosition(1, 3);
    form->msgRejilla.Row(3);
  };
  Run([](qt::FormWindow& window) {
    Click(window, "cmdPagina");
    EXPECT_EQ(Of<QTableView>(window, "msgRejilla")->currentIndex().row(), 2);
    EXPECT_EQ(CellText(window, "msgRejilla", 2, 0), "Lengua (1º ESO)");
  });
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
  Run([this](qt::FormWindow& window) {
    Click(window, "cmdPagina");
    EXPECT_EQ(Of<QTableView>(window, "msgRejilla")->model()->rowCount(), 0);
    Key(window, "msgRejilla", Qt::Key_Down);
    Key(window, "msgRejilla", Qt::Key_Up);
    EXPECT_EQ(form->msgRejilla.Row(), -1);
  });
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
  Run([](qt::FormWindow& window) {
    Click(window, "cmdPagina");
    EXPECT_EQ(CellText(window, "msgRejilla", 0, 0), "Nueva");
  });
}

TEST_F(GridsTest, TopRowBringsARowIntoSight) {
  for (int i = 0; i < 60; ++i) form->msgRejilla.AddItem("Materia " + std::to_string(i));
  form->cmdPagina.Click = [this] { form->msgRejilla.TopRow(40); };
  Run([](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "msgRejilla");
    Click(window, "cmdPagina");
    EXPECT_EQ(table->rowAt(0), 39);
  });
}

TEST_F(GridsTest, TopRowSetAgainBringsTheRowBackThatTheUserScrolledAwayFrom) {
  for (int i = 0; i < 60; ++i) form->msgRejilla.AddItem("Materia " + std::to_string(i));
  form->cmdPagina.Click = [this] { form->msgRejilla.TopRow(40); };
  Run([](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, "msgRejilla");
    Click(window, "cmdPagina");
    table->verticalScrollBar()->setValue(3);
    ASSERT_EQ(table->rowAt(0), 3);
    Click(window, "chkTodo");
    EXPECT_EQ(table->rowAt(0), 3) << "what another control does moves nothing";
    Click(window, "cmdPagina");
    EXPECT_EQ(table->rowAt(0), 39);
  });
}

TEST_F(GridsTest, TypingALetterFindsARow) {
  Run([this](qt::FormWindow& window) {
    Type(window, "msgRejilla", "mú");
    EXPECT_EQ(form->msgRejilla.Row(), 3);
  });
}

}  // namespace
}  // namespace quorvane::test
