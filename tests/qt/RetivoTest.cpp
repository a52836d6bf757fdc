#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>

#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/qt/views/Units.h"
#include "platform/RuntimeError.h"
#include "tests/qt/PruebaTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

/// Cells count from 0 below the heading: list cells are the columns 1 and 2 of two rows.
class RetivoTest : public PruebaTest {
 protected:
  /// Begins with a click on that cell.
  void RunAt(int row, int column, const Step& act) {
    Run([=](qt::FormWindow& window) {
      ClickCell(window, "rtvNotas", row, column);
      act(window);
    });
  }
  [[nodiscard]] qt::RetivoEditor* List() const { return OpenedList(*screen.ActiveWindow()); }
  [[nodiscard]] QLineEdit* Filter() const { return ListFilter(*screen.ActiveWindow()); }
  [[nodiscard]] QString Refusal() const {
    const auto* refusal = List()->findChild<QLabel*>("rechazo");
    return refusal->isVisible() ? refusal->text() : QString();
  }
  [[nodiscard]] std::vector<std::string> Offered() const {
    std::vector<std::string> texts;
    const auto* list = List()->findChild<QListWidget*>();
    for (int i = 0; i < list->count(); ++i)
      if (!list->item(i)->isHidden()) texts.push_back(list->item(i)->text().toStdString());
    return texts;
  }
  void ClickOffered(int entry) const {
    auto* list = List()->findChild<QListWidget*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(entry)).center());
  }
};

TEST_F(RetivoTest, AClickOpensTheListAndAClickChooses) {
  RunAt(1, 1, [this](qt::FormWindow& window) {
    ASSERT_NE(List(), nullptr);
    EXPECT_THAT(Offered(), ElementsAre(" ", "1", "5", "10", "Notable", "Sobresaliente", "Óptimo"));
    ClickOffered(2);
    EXPECT_EQ(List(), nullptr);
    EXPECT_EQ(CellText(window, "rtvNotas", 1, 1), "5");
  });
  EXPECT_THAT(seen, ElementsAre("inicio 2,1", "fin 3"));
  EXPECT_EQ(form->rtvNotas.TextMatrix(2, 1), "5");
}

TEST_F(RetivoTest, ACellThatOffersNothingOpensNoList) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    ASSERT_NE(List(), nullptr);
    QTest::keyClick(Filter(), Qt::Key_Escape);
    form->rtvNotas.InicioEdicion = [this] { form->Log("nada"); };
    ClickCell(window, "rtvNotas", 1, 1);
    EXPECT_EQ(List(), nullptr);
    for (const auto key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_7}) Key(window, "rtvNotas", key);
    EXPECT_EQ(List(), nullptr);
    EXPECT_TRUE(form->Visible());
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "nada", "nada", "nada", "nada"));
}

TEST_F(RetivoTest, TheListOpensOnWhatTheCellShows) {
  RunAt(0, 1, [this](qt::FormWindow& /*window*/) {
    EXPECT_EQ(List()->findChild<QListWidget*>()->currentRow(), 3);
    QTest::keyClick(Filter(), Qt::Key_Up);
    QTest::keyClick(Filter(), Qt::Key_Return);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3"));
}

TEST_F(RetivoTest, EscGivesUpWithoutAnEnd) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClick(Filter(), Qt::Key_Escape);
    EXPECT_EQ(List(), nullptr);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
  EXPECT_EQ(form->rtvNotas.TextMatrix(1, 1), "10");
}

// While the cell still shows what it did: a host that keeps what is typed needs both.
TEST_F(RetivoTest, TheHostIsToldOfAnEditBeforeTheForm) {
  screen.EditEnding = [this](const Form& edited, const Retivo& grid, int entry) {
    EXPECT_EQ(&edited, form.get());
    EXPECT_EQ(&grid, &form->rtvNotas);
    form->log.push_back("anfitrión " + grid.TextMatrix(grid.Row(), grid.Col()) + " " +
                        std::to_string(entry));
  };
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClick(Filter(), Qt::Key_Escape);
    ClickCell(window, "rtvNotas", 0, 1);
    ClickOffered(2);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "inicio 1,1", "anfitrión 10 3", "fin 3"));
}

TEST_F(RetivoTest, F2AndEnterOpenTheList) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    EXPECT_EQ(List(), nullptr);
    Key(window, "rtvNotas", Qt::Key_Right);
    Key(window, "rtvNotas", Qt::Key_F2);
    ASSERT_NE(List(), nullptr);
    QTest::keyClick(Filter(), Qt::Key_Escape);
    Key(window, "rtvNotas", Qt::Key_Return);
    ASSERT_NE(List(), nullptr);
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "inicio 1,1"));
}

TEST_F(RetivoTest, TypingOpensTheListAndNarrowsIt) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    Key(window, "rtvNotas", Qt::Key_Right);
    Type(window, "rtvNotas", "1");
    ASSERT_NE(List(), nullptr);
    EXPECT_THAT(Offered(), ElementsAre("1", "10"));
    QTest::keyClicks(Filter(), "0");
    EXPECT_THAT(Offered(), ElementsAre("10"));
    QTest::keyClick(Filter(), Qt::Key_Return);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 2"));
}

TEST_F(RetivoTest, NumbersStandByValueAndWhatIsTypedExactlyStandsFirst) {
  form->rtvNotas.InicioEdicion = [this] {
    auto& grid = form->rtvNotas;
    grid.ListaLimpiar(1);
    for (const auto* text : {" ", "10", "Notable alto", "Notable", "9,5", "2"})
      grid.ListaAnadir(1, text, 0);
  };
  RunAt(0, 1, [this](qt::FormWindow& /*window*/) {
    EXPECT_THAT(Offered(), ElementsAre(" ", "2", "Notable alto", "Notable", "9,5", "10"));
    QTest::keyClicks(Filter(), "notable");
    EXPECT_THAT(Offered(), ElementsAre("Notable", "Notable alto"));
    QTest::keyClick(Filter(), Qt::Key_Return);
  });
  EXPECT_THAT(seen, ElementsAre("fin 3")) << "the entry's place among those that came";
}

TEST_F(RetivoTest, NarrowingKnowsNeitherCaseNorAccentsAndFindsInside) {
  RunAt(0, 1, [this](qt::FormWindow& /*window*/) {
    QTest::keyClicks(Filter(), "opt");
    EXPECT_THAT(Offered(), ElementsAre("Óptimo"));
    Filter()->selectAll();
    QTest::keyClicks(Filter(), "SALI");
    EXPECT_THAT(Offered(), ElementsAre("Sobresaliente"));
    Filter()->selectAll();
    QTest::keyClicks(Filter(), "zz");
    EXPECT_THAT(Offered(), IsEmpty());
    QTest::keyClick(Filter(), Qt::Key_Return);
    ASSERT_NE(List(), nullptr) << "there is nothing to choose";
    EXPECT_EQ(Refusal(), "No hay ninguna nota «zz»");
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, TabChoosesAndGoesOnToTheNextListCell) {
  RunAt(0, 2, [this](qt::FormWindow& /*window*/) {
    QTest::keyClicks(Filter(), "5");
    QTest::keyClick(Filter(), Qt::Key_Tab);
    EXPECT_EQ(form->rtvNotas.TextMatrix(1, 2), "5");
    EXPECT_EQ(form->rtvNotas.Row(), 2);
    EXPECT_EQ(form->rtvNotas.Col(), 1);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,2", "fin 3"));
}

TEST_F(RetivoTest, TabOnATextThatFitsNoEntryStaysAndSaysSo) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClicks(Filter(), "11");
    QTest::keyClick(Filter(), Qt::Key_Tab);
    ASSERT_NE(List(), nullptr);
    EXPECT_EQ(Refusal(), "No hay ninguna nota «11»");
    QTest::keyClick(Filter(), Qt::Key_Backtab);
    ASSERT_NE(List(), nullptr);
    QTest::keyClick(Filter(), Qt::Key_Backspace);
    EXPECT_EQ(Refusal(), "") << "what is typed now is judged anew";
    QTest::keyClick(Filter(), Qt::Key_Tab);
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 1), "1");
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 1"));
}

TEST_F(RetivoTest, AGradeThatWasTypedIsTakenByAClickOnAButtonThatThenDoesItsWork) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClicks(Filter(), "5");
    Click(window, "cmdPagina");
    EXPECT_EQ(List(), nullptr);
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 1), "5");
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3", "pagina"));
}

TEST_F(RetivoTest, AGradeThatWasTypedIsTakenByAClickOnAnotherCellThatThenOpens) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClicks(Filter(), "5");
    ClickCell(window, "rtvNotas", 1, 2);
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 1), "5");
    ASSERT_NE(List(), nullptr);
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3", "inicio 2,2"));
}

TEST_F(RetivoTest, AListInWhichNothingWasTypedIsLeftByAClickAsByEsc) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClick(Filter(), Qt::Key_Down);
    Click(window, "cmdPagina");
    EXPECT_EQ(List(), nullptr);
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 1), "10");
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "pagina"));
}

TEST_F(RetivoTest, ATextThatFitsNoEntryHoldsClicksBack) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClicks(Filter(), "11");
    Click(window, "cmdPagina");
    ASSERT_NE(List(), nullptr);
    EXPECT_EQ(Refusal(), "No hay ninguna nota «11»");
    ClickCell(window, "rtvNotas", 0, 0);
    ClickCell(window, "rtvNotas", 0, 1);
    DoubleClickCell(window, "rtvNotas", 0, 1);
    window.close();
    ASSERT_NE(List(), nullptr);
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(window.focusWidget(), Filter());
    EXPECT_EQ(Filter()->text(), "11");
    QTest::keyClick(Filter(), Qt::Key_Escape);
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 1), "10");
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, AnotherWindowThatGetsTheKeyboardTakesWhatWasTyped) {
  Run([this](qt::FormWindow& window) {
    QWidget other;
    ClickCell(window, "rtvNotas", 0, 1);
    QTest::keyClicks(Filter(), "nota");
    other.show();
    QApplication::setActiveWindow(&other);
    EXPECT_EQ(List(), nullptr);
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 1), "Notable");
    QApplication::setActiveWindow(&window);
    EXPECT_TRUE(Of(window, "rtvNotas")->hasFocus());

    ClickCell(window, "rtvNotas", 0, 2);
    QTest::keyClicks(Filter(), "11");
    QApplication::setActiveWindow(&other);
    ASSERT_NE(List(), nullptr) << "nothing is dropped in silence";
    EXPECT_EQ(Refusal(), "No hay ninguna nota «11»");
    QApplication::setActiveWindow(&window);
    EXPECT_TRUE(Filter()->hasFocus());
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 4", "inicio 1,2"));
}

TEST_F(RetivoTest, ADoubleClickOpensTheListOnce) {
  Run([this](qt::FormWindow& window) {
    DoubleClickCell(window, "rtvNotas", 0, 1);
    ASSERT_NE(List(), nullptr);
    EXPECT_EQ(window.focusWidget(), Filter());
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, TheOpenListLiesInTheWindowAndItsCellStaysInSight) {
  Run([this](qt::FormWindow& window) {
    for (const auto size : {QSize(656, 408), QSize(900, 700), QSize(500, 300)}) {
      window.resize(size);
      for (const auto row : {0, 1}) {
        ClickCell(window, "rtvNotas", row, 1);
        ASSERT_NE(List(), nullptr);
        EXPECT_TRUE(window.rect().contains(List()->geometry())) << size.width();
        EXPECT_FALSE(List()->geometry().intersects(List()->Cell())) << size.width();
        QTest::keyClick(Filter(), Qt::Key_Escape);
      }
    }
  });
}

TEST_F(RetivoTest, TheWheelMovesNothingUnderAnOpenList) {
  RunAt(0, 1, [this](qt::FormWindow& window) {
    QTest::keyClicks(Filter(), "5");
    const auto* table = Of<QTableView>(window, "rtvNotas");
    const auto at = table->viewport()->rect().center();
    QWheelEvent wheel(at, table->viewport()->mapToGlobal(at), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(table->viewport(), &wheel);
    ASSERT_NE(List(), nullptr);
    EXPECT_EQ(Filter()->text(), "5");
    QTest::keyClick(Filter(), Qt::Key_Return);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3"));
}

TEST_F(RetivoTest, TabInTheListOfTheLastCellGoesOnToTheNextControl) {
  RunAt(1, 2, [this](qt::FormWindow& window) {
    QTest::keyClicks(Filter(), "5");
    QTest::keyClick(Filter(), Qt::Key_Tab);
    EXPECT_EQ(CellText(window, "rtvNotas", 1, 2), "5");
    EXPECT_EQ(window.focusWidget(), Of(window, "cmdAceptar"));
  });
}

TEST_F(RetivoTest, TabWalksTheListCellsAndLeavesAfterTheLast) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    std::vector<std::pair<int, int>> walk;
    for (int i = 0; i < 4; ++i) {
      Key(window, "rtvNotas", Qt::Key_Tab);
      walk.emplace_back(form->rtvNotas.Row(), form->rtvNotas.Col());
    }
    using P = std::pair<int, int>;
    EXPECT_THAT(walk, ElementsAre(P(1, 1), P(1, 2), P(2, 1), P(2, 2)));
    Key(window, "rtvNotas", Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), Of(window, "cmdAceptar"));
    Key(window, "rtvNotas", Qt::Key_Backtab);
    EXPECT_EQ(form->rtvNotas.Col(), 1);
  });
}

TEST_F(RetivoTest, TheBlankOpensTheWholeList) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    Key(window, "rtvNotas", Qt::Key_Tab);
    Key(window, "rtvNotas", Qt::Key_Space);
    ASSERT_NE(List(), nullptr);
    EXPECT_EQ(Offered().size(), 7U);
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, CtrlTabLeavesTheTableFromAnyCell) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    Key(window, "rtvNotas", Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(window.focusWidget(), Of(window, "cmdAceptar"));
    Key(window, "rtvNotas", Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), Of(window, "msgRejilla"));
  });
  EXPECT_THAT(seen, IsEmpty());
}

// The grid is drawn with columns alone to drag: no border of a row can be taken hold of.
TEST_F(RetivoTest, RowsOfferNoBorderToDrag) {
  form->rtvNotas.CambioAlto = [this] { form->Log("alto"); };
  Run([this](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "rtvNotas");
    EXPECT_FALSE(table->verticalHeader()->isVisible());
    const auto before = table->rowHeight(0);
    const QPoint edge(2, table->rowViewportPosition(1) - 1);
    QTest::mousePress(table->viewport(), Qt::LeftButton, {}, edge);
    QTest::mouseMove(table->viewport(), edge + QPoint(0, 20));
    QTest::mouseRelease(table->viewport(), Qt::LeftButton, {}, edge + QPoint(0, 20));
    EXPECT_EQ(table->rowHeight(0), before);
  });
  EXPECT_THAT(seen, Not(Contains("alto")));
}

TEST_F(RetivoTest, TheArrowKeysGoFromCellToCell) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    Key(window, "rtvNotas", Qt::Key_Right);
    Key(window, "rtvNotas", Qt::Key_Down);
    EXPECT_EQ(form->rtvNotas.Row(), 2);
    EXPECT_EQ(form->rtvNotas.Col(), 1);
  });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(RetivoTest, TheFormTakesAKeyBeforeTheGrid) {
  std::vector<int> keys;
  form->OnKey = [&keys](int& key) {
    keys.push_back(key);
    if (key == 40) key = 0;
  };
  RunAt(0, 0, [this](qt::FormWindow& window) {
    Key(window, "rtvNotas", Qt::Key_Down);
    EXPECT_EQ(form->rtvNotas.Row(), 1);
    Key(window, "rtvNotas", Qt::Key_Right);
    EXPECT_EQ(form->rtvNotas.Col(), 1);
  });
  EXPECT_THAT(keys, ElementsAre(40, 39));
}

TEST_F(RetivoTest, AColumnThatEditsThroughNoListOpensNone) {
  RunAt(0, 0, [this](qt::FormWindow& window) {
    Key(window, "rtvNotas", Qt::Key_F2);
    EXPECT_EQ(List(), nullptr);
  });
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(RetivoTest, TheGridStandsStillUntilItMayBePaintedAgain) {
  form->cmdPagina.Click = [this] {
    form->rtvNotas.Redraw(false);
    form->rtvNotas.TextMatrix(1, 0, "Otra");
    screen.DoEvents();
    EXPECT_EQ(CellText(*screen.ActiveWindow(), "rtvNotas", 0, 0), "Lengua");
    form->rtvNotas.Redraw(true);
  };
  Run([this](qt::FormWindow& window) {
    Click(window, "cmdPagina");
    EXPECT_EQ(CellText(window, "rtvNotas", 0, 0), "Otra");
  });
}

TEST_F(RetivoTest, DraggingAColumnTellsItsWidthOnceAndTheFormMaySetItBack) {
  auto told = 0;
  form->rtvNotas.CambioAncho = [this, &told] {
    told = form->rtvNotas.ColWidth(0);
    form->rtvNotas.ColWidth(0, 1500);
    form->Log("ancho");
  };
  Run([this](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "rtvNotas");
    auto* bar = table->horizontalHeader();
    const auto edge = bar->sectionViewportPosition(1) - 1;
    QTest::mousePress(bar->viewport(), Qt::LeftButton, {}, QPoint(edge, 5));
    QTest::mouseMove(bar->viewport(), QPoint(edge + 20, 5));
    QTest::mouseMove(bar->viewport(), QPoint(edge + 40, 5));
    QTest::mouseRelease(bar->viewport(), Qt::LeftButton, {}, QPoint(edge + 40, 5));
    EXPECT_EQ(table->columnWidth(0), qt::Pixels(1500));
  });
  EXPECT_THAT(seen, ElementsAre("ancho"));
  EXPECT_GT(told, 1500);
}

TEST_F(RetivoTest, AWiderColumnSetWhenTheEditBeginsIsShown) {
  form->rtvNotas.InicioEdicion = [this] {
    form->rtvNotas.ListaAnadir(1, "Sobresaliente", 9);
    form->rtvNotas.ColWidth(1, 2700);
  };
  RunAt(0, 1, [this](qt::FormWindow& window) {
    EXPECT_EQ(Of<QTableView>(window, "rtvNotas")->columnWidth(1), qt::Pixels(2700));
    QTest::keyClick(Filter(), Qt::Key_Escape);
  });
}

TEST_F(RetivoTest, AFailureWhenTheEditBeginsOrEndsComesOut) {
  form->rtvNotas.FinEdicion = [] { throw RuntimeError(ErrorNumber::MissingMember); };
  Then([this](qt::FormWindow& window) {
    ClickCell(window, "rtvNotas", 0, 1);
    ClickOffered(1);
  });
  EXPECT_THROW(form->ShowModal(), RuntimeError);
  form = std::make_shared<frmPrueba>();
  form->rtvNotas.InicioEdicion = [] { throw RuntimeError(ErrorNumber::NoCurrentRecord); };
  Then([this](qt::FormWindow& window) {
    ClickCell(window, "rtvNotas", 0, 1);
    EXPECT_EQ(List(), nullptr);
  });
  EXPECT_THROW(form->ShowModal(), RuntimeError);
}

}  // namespace
}  // namespace quorvane::test
