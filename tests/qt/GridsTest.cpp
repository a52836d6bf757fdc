#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

class GridsTest : public PruebaTest {
 protected:
  static QTableView& Table(const qt::FormWindow& window) {
    return *Of<QTableView>(window, "msgRejilla");
  }
  /// So many rows below the heading.
  static Gesture ExpectRows(int rows) {
    return [rows](auto& window) { EXPECT_EQ(Table(window).model()->rowCount(), rows); };
  }
  static Gesture ExpectText(int row, const std::string& text) {
    return [=](auto& window) { EXPECT_EQ(CellText(window, "msgRejilla", row, 0), text); };
  }
  static Gesture ExpectOnTop(int row) {
    return [row](auto& window) { EXPECT_EQ(Table(window).rowAt(0), row); };
  }
  static Gesture Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
    return Key("msgRejilla", key, with);
  }
  Gesture ExpectRow(int row) {
    return [this, row](auto&) { EXPECT_EQ(form->msgRejilla.Row(), row); };
  }
  /// More rows than fit; the button brings one of them to the top.
  void Lengthen() {
    for (int i = 0; i < 60; ++i) form->msgRejilla.AddItem("Materia " + std::to_string(i));
    form->cmdPagina.Click = [this] { form->msgRejilla.TopRow(40); };
  }
};

TEST_F(GridsTest, TheFixedRowIsTheHeading) {
  Run(ExpectRows(3), ExpectText(1, "Matemáticas (1º ESO)"), [](auto& window) {
    EXPECT_EQ(Table(window).model()->headerData(1, Qt::Horizontal).toString(), "1ª Eval.");
    EXPECT_TRUE(Table(window).horizontalHeader()->isVisible());
  });
}

TEST_F(GridsTest, AGridWithoutFixedRowShowsNoHeading) {
  form->msgRejilla.FixedRows(0);
  Run(ExpectRows(4),
      [](auto& window) { EXPECT_FALSE(Table(window).horizontalHeader()->isVisible()); });
}

TEST_F(GridsTest, AColumnOfWidth0IsHidden) {
  Run([](auto& window) {
    EXPECT_TRUE(Table(window).isColumnHidden(3));
    EXPECT_FALSE(Table(window).isColumnHidden(2));
  });
}

TEST_F(GridsTest, MarksAreCentred) {
  Run([](auto& window) {
    const auto cell = Table(window).model()->index(0, 1);
    EXPECT_TRUE((cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHCenter) != 0);
  });
}

TEST_F(GridsTest, TheRowFollowsMouseAndKeyboard) {
  const auto expectSelected = [this](int row) {
    return [this, row](auto&) { EXPECT_EQ(form->msgRejilla.RowSel(), row); };
  };
  Run(ClickCell("msgRejilla", 2, 0), expectSelected(3), Press(Qt::Key_Up), expectSelected(2),
      Press(Qt::Key_Home, Qt::ControlModifier), ExpectRow(1));
}

TEST_F(GridsTest, DoubleClickAndEnterAreAlike) {
  Run(DoubleClickCell("msgRejilla", 1, 1), Press(Qt::Key_Return));
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
  Run("cmdPagina", ExpectText(2, "Lengua (1º ESO)"),
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
  Run("cmdPagina", ExpectRows(0), Press(Qt::Key_Down), Press(Qt::Key_Up), ExpectRow(-1));
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
  Run("cmdPagina", ExpectText(0, "Nueva"));
}

TEST_F(GridsTest, TopRowBringsARowIntoSight) {
  Lengthen();
  Run("cmdPagina", ExpectOnTop(39));
}

TEST_F(GridsTest, TopRowSetAgainBringsTheRowBackThatTheUserScrolledAwayFrom) {
  Lengthen();
  const auto scroll = [](auto& window) { Table(window).verticalScrollBar()->setValue(3); };
  // What another control does moves nothing.
  Run("cmdPagina", scroll, ExpectOnTop(3), "chkTodo", ExpectOnTop(3), "cmdPagina", ExpectOnTop(39));
}

TEST_F(GridsTest, TypingALetterFindsARow) { Run(Type("msgRejilla", "mú"), ExpectRow(3)); }

}  // namespace
}  // namespace quorvane::test
