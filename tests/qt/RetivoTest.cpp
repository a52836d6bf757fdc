#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>

#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/qt/views/Units.h"
#include "platform/RuntimeError.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

/// Cells count from 0 below the heading: list cells are the columns 1 and 2 of two rows.
class RetivoTest : public PruebaTest {
 protected:
  using Texts = std::vector<std::string>;

  [[nodiscard]] qt::RetivoEditor* List() const { return OpenedList(*screen.ActiveWindow()); }
  [[nodiscard]] QLineEdit* Filter() const { return ListFilter(*screen.ActiveWindow()); }
  [[nodiscard]] QListWidget* Entries() const { return List()->findChild<QListWidget*>(); }

  // Gestures on the table, and in the list that a cell has opened.

  /// Begins with a click on that cell.
  template <class... Gestures>
  void RunAt(int row, int column, Gestures... gestures) {
    Run(At(row, column), gestures...);
  }
  static Gesture At(int row, int column) { return ClickCell("rtvNotas", row, column); }
  static Gesture Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
    return Key("rtvNotas", key, with);
  }
  Gesture InList(Qt::Key key) const {
    return [this, key](auto&) { QTest::keyClick(Filter(), key); };
  }
  Gesture InList(const char* text) const {
    return [this, text](auto&) { QTest::keyClicks(Filter(), text); };
  }
  /// In the place of what stands there.
  Gesture InListAnew(const char* text) const {
    return [this, text](auto&) {
      Filter()->selectAll();
      QTest::keyClicks(Filter(), text);
    };
  }
  Gesture ClickOffered(int entry) const {
    return [this, entry](auto&) {
      const auto place = Entries()->visualItemRect(Entries()->item(entry)).center();
      QTest::mouseClick(Entries()->viewport(), Qt::LeftButton, {}, place);
    };
  }

  // What then holds.

  Gesture ListIs(bool open) const {
    return [this, open](auto&) { EXPECT_EQ(List() != nullptr, open); };
  }
  Gesture Offers(const Texts& expected) const {
    return [this, expected](auto&) {
      Texts texts;
      for (int i = 0; i < Entries()->count(); ++i)
        if (!Entries()->item(i)->isHidden())
          texts.push_back(Entries()->item(i)->text().toStdString());
      EXPECT_EQ(texts, expected);
    };
  }
  /// The open list says that no grade is called so.
  Gesture Refuses(const QString& typed) const {
    return [this, typed](auto&) {
      ASSERT_NE(List(), nullptr) << "nothing is dropped in silence";
      EXPECT_EQ(Refusal(), "No hay ninguna nota «" + typed + "»");
    };
  }
  [[nodiscard]] QString Refusal() const {
    const auto* refusal = List()->findChild<QLabel*>("rechazo");
    return refusal->isVisible() ? refusal->text() : QString();
  }
  static Gesture Shows(int row, int column, const std::string& text) {
    return [=](auto& window) { EXPECT_EQ(CellText(window, "rtvNotas", row, column), text); };
  }
  /// The form's own cell, which counts from 1.
  Gesture StandsAt(int row, int column) const {
    return [=, this](auto&) {
      EXPECT_EQ(std::pair(form->rtvNotas.Row(), form->rtvNotas.Col()), std::pair(row, column));
    };
  }
  static Gesture HasKeyboard(const char* control) {
    return [=](auto& window) { EXPECT_EQ(window.focusWidget(), Of(window, control)); };
  }
};

TEST_F(RetivoTest, AClickOpensTheListAndAClickChooses) {
  RunAt(1, 1, Offers({" ", "1", "5", "10", "Notable", "Sobresaliente", "Óptimo"}), ClickOffered(2),
        ListIs(false), Shows(1, 1, "5"));
  EXPECT_THAT(seen, ElementsAre("inicio 2,1", "fin 3"));
  EXPECT_EQ(form->rtvNotas.TextMatrix(2, 1), "5");
}

TEST_F(RetivoTest, ACellThatOffersNothingOpensNoList) {
  const auto offerNothing = [this](auto&) {
    form->rtvNotas.InicioEdicion = [this] { form->Log("nada"); };
  };
  RunAt(0, 1, InList(Qt::Key_Escape), offerNothing, At(1, 1), ListIs(false), Press(Qt::Key_F2),
        Press(Qt::Key_7), ListIs(false), Press(Qt::Key_Return), ListIs(false),
        [this](auto&) { EXPECT_TRUE(form->Visible()); });
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "nada", "nada", "nada"));
}

TEST_F(RetivoTest, TheListOpensOnWhatTheCellShows) {
  RunAt(
      0, 1, [this](auto&) { EXPECT_EQ(Entries()->currentRow(), 3); }, InList(Qt::Key_Up),
      InList(Qt::Key_Return));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3"));
}

TEST_F(RetivoTest, EscGivesUpWithoutAnEnd) {
  RunAt(0, 1, InList(Qt::Key_Escape), ListIs(false),
        [](auto& window) { EXPECT_TRUE(window.isVisible()); });
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
  RunAt(0, 1, InList(Qt::Key_Escape), At(0, 1), ClickOffered(2));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "inicio 1,1", "anfitrión 10 3", "fin 3"));
}

TEST_F(RetivoTest, F2OpensTheList) {
  RunAt(0, 0, ListIs(false), Press(Qt::Key_Right), Press(Qt::Key_F2), InList(Qt::Key_Escape));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, TypingOpensTheListAndNarrowsIt) {
  RunAt(0, 0, Press(Qt::Key_Right), Type("rtvNotas", "1"), Offers({"1", "10"}), InList("0"),
        Offers({"10"}), InList(Qt::Key_Return));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 2"));
}

TEST_F(RetivoTest, NumbersStandByValueAndWhatIsTypedExactlyStandsFirst) {
  form->rtvNotas.InicioEdicion = [this] {
    auto& grid = form->rtvNotas;
    grid.ListaLimpiar(1);
    for (const auto* text : {" ", "10", "Notable alto", "Notable", "9,5", "2"})
      grid.ListaAnadir(1, text, 0);
  };
  RunAt(0, 1, Offers({" ", "2", "Notable alto", "Notable", "9,5", "10"}), InList("notable"),
        Offers({"Notable", "Notable alto"}), InList(Qt::Key_Return));
  EXPECT_THAT(seen, ElementsAre("fin 3")) << "the entry's place among those that came";
}

TEST_F(RetivoTest, OfTwoEntriesOfOneTextTheFirstIsChosen) {
  form->rtvNotas.InicioEdicion = [this] {
    form->rtvNotas.ListaLimpiar(1);
    for (const auto* text : {" ", "Apto alto", "Apto", "APTO"})
      form->rtvNotas.ListaAnadir(1, text, 0);
  };
  RunAt(0, 1, InList("apto"), Offers({"Apto", "APTO", "Apto alto"}), InList(Qt::Key_Return));
  EXPECT_THAT(seen, ElementsAre("fin 2"));
}

TEST_F(RetivoTest, NarrowingKnowsNeitherCaseNorAccentsAndFindsInside) {
  // In the end there is nothing to choose.
  RunAt(0, 1, InList("opt"), Offers({"Óptimo"}), InListAnew("SALI"), Offers({"Sobresaliente"}),
        InListAnew("zz"), Offers({}), InList(Qt::Key_Return), Refuses("zz"),
        InList(Qt::Key_Escape));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, TabChoosesAndGoesOnToTheNextListCell) {
  RunAt(0, 2, InList("5"), InList(Qt::Key_Tab), StandsAt(2, 1));
  EXPECT_EQ(form->rtvNotas.TextMatrix(1, 2), "5");
  EXPECT_THAT(seen, ElementsAre("inicio 1,2", "fin 3"));
}

TEST_F(RetivoTest, TabOnATextThatFitsNoEntryStaysAndSaysSo) {
  const auto judgesAnew = [this](auto&) { EXPECT_EQ(Refusal(), ""); };
  RunAt(0, 1, InList("11"), InList(Qt::Key_Tab), Refuses("11"), InList(Qt::Key_Backtab),
        ListIs(true), InList(Qt::Key_Backspace), judgesAnew, InList(Qt::Key_Tab), Shows(0, 1, "1"));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 1"));
}

TEST_F(RetivoTest, AGradeThatWasTypedIsTakenByAClickOnAButtonThatThenDoesItsWork) {
  RunAt(0, 1, InList("5"), "cmdPagina", ListIs(false), Shows(0, 1, "5"));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3", "pagina"));
}

TEST_F(RetivoTest, AGradeThatWasTypedIsTakenByAClickOnAnotherCellThatThenOpens) {
  RunAt(0, 1, InList("5"), At(1, 2), Shows(0, 1, "5"), InList(Qt::Key_Escape));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3", "inicio 2,2"));
}

TEST_F(RetivoTest, AListInWhichNothingWasTypedIsLeftByAClickAsByEsc) {
  RunAt(0, 1, InList(Qt::Key_Down), "cmdPagina", ListIs(false), Shows(0, 1, "10"));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "pagina"));
}

TEST_F(RetivoTest, ATextThatFitsNoEntryHoldsClicksBack) {
  RunAt(
      0, 1, InList("11"), "cmdPagina", Refuses("11"), At(0, 0), At(0, 1),
      DoubleClickCell("rtvNotas", 0, 1),
      [this](auto& window) {
        window.close();
        EXPECT_TRUE(form->Visible());
        EXPECT_EQ(window.focusWidget(), Filter());
        EXPECT_EQ(Filter()->text(), "11");
      },
      InList(Qt::Key_Escape), Shows(0, 1, "10"));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, AnotherWindowThatGetsTheKeyboardTakesWhatWasTyped) {
  QWidget other;
  const auto goAway = [&other](auto&) {
    other.show();
    QApplication::setActiveWindow(&other);
  };
  const auto comeBack = [](auto& window) { QApplication::setActiveWindow(&window); };
  RunAt(
      0, 1, InList("nota"), goAway, ListIs(false), Shows(0, 1, "Notable"), comeBack,
      HasKeyboard("rtvNotas"), At(0, 2), InList("11"), goAway, Refuses("11"), comeBack,
      [this](auto&) { EXPECT_TRUE(Filter()->hasFocus()); }, InList(Qt::Key_Escape));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 4", "inicio 1,2"));
}

TEST_F(RetivoTest, ADoubleClickOpensTheListOnce) {
  Run(
      DoubleClickCell("rtvNotas", 0, 1),
      [this](auto& window) { EXPECT_EQ(window.focusWidget(), Filter()); }, InList(Qt::Key_Escape));
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
  const auto turnWheel = [this](auto& window) {
    const auto* table = Of<QTableView>(window, "rtvNotas");
    const auto at = table->viewport()->rect().center();
    QWheelEvent wheel(at, table->viewport()->mapToGlobal(at), {}, {0, -120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(table->viewport(), &wheel);
    EXPECT_EQ(Filter()->text(), "5");
  };
  RunAt(0, 1, InList("5"), turnWheel, InList(Qt::Key_Return));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 3"));
}

TEST_F(RetivoTest, TabInTheListOfTheLastCellTakesTheGradeAndStays) {
  RunAt(1, 2, InList("5"), InList(Qt::Key_Tab), ListIs(false), Shows(1, 2, "5"), StandsAt(2, 2),
        HasKeyboard("rtvNotas"));
}

TEST_F(RetivoTest, TabWalksTheListCellsAndStaysAtTheLast) {
  const auto tab = Press(Qt::Key_Tab);
  const auto back = Press(Qt::Key_Backtab, Qt::ShiftModifier);
  RunAt(0, 0, tab, StandsAt(1, 1), tab, StandsAt(1, 2), tab, StandsAt(2, 1), tab, StandsAt(2, 2),
        tab, tab, HasKeyboard("rtvNotas"), StandsAt(2, 2), Press(Qt::Key_Return),
        HasKeyboard("rtvNotas"), back, back, back, StandsAt(1, 1), back, StandsAt(1, 1),
        HasKeyboard("rtvNotas"));
  EXPECT_THAT(seen, IsEmpty()) << "no button was pressed";
}

TEST_F(RetivoTest, TabGoesThroughATableInWhichNothingOpens) {
  form->rtvNotas.Rows(1);
  Run([](auto& window) { Of(window, "msgRejilla")->setFocus(); }, Key("msgRejilla", Qt::Key_Tab),
      HasKeyboard("rtvNotas"), Press(Qt::Key_Tab), HasKeyboard("cmdAceptar"));
}

TEST_F(RetivoTest, TheBlankOpensTheWholeList) {
  RunAt(0, 0, Press(Qt::Key_Tab), Press(Qt::Key_Space),
        Offers({" ", "1", "5", "10", "Notable", "Sobresaliente", "Óptimo"}),
        InList(Qt::Key_Escape));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1"));
}

TEST_F(RetivoTest, CtrlTabLeavesTheTableFromAnyCell) {
  RunAt(0, 0, Press(Qt::Key_Tab, Qt::ControlModifier), HasKeyboard("cmdAceptar"),
        Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), HasKeyboard("msgRejilla"));
  EXPECT_THAT(seen, IsEmpty());
}

// The grid is drawn with columns alone to drag: no border of a row can be taken hold of.
TEST_F(RetivoTest, RowsOfferNoBorderToDrag) {
  form->rtvNotas.CambioAlto = [this] { form->Log("alto"); };
  Run([](auto& window) {
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
  RunAt(0, 0, Press(Qt::Key_Right), Press(Qt::Key_Down), StandsAt(2, 1));
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(RetivoTest, TheFormTakesAKeyBeforeTheGrid) {
  std::vector<int> keys;
  form->OnKey = [&keys](int& key) {
    keys.push_back(key);
    if (key == 40) key = 0;
  };
  RunAt(0, 0, Press(Qt::Key_Down), StandsAt(1, 0), Press(Qt::Key_Right), StandsAt(1, 1));
  EXPECT_THAT(keys, ElementsAre(40, 39));
}

TEST_F(RetivoTest, AColumnThatEditsThroughNoListOpensNone) {
  RunAt(0, 0, Press(Qt::Key_F2), ListIs(false));
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
  Run("cmdPagina", Shows(0, 0, "Otra"));
}

TEST_F(RetivoTest, DraggingAColumnTellsItsWidthOnceAndTheFormMaySetItBack) {
  auto told = 0;
  // No room is left to be shared out.
  form->rtvNotas.ColWidth(2, 4000);
  form->rtvNotas.CambioAncho = [this, &told] {
    told = form->rtvNotas.ColWidth(0);
    form->rtvNotas.ColWidth(0, 1500);
    form->Log("ancho");
  };
  Run([](auto& window) {
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
  const auto isWider = [](auto& window) {
    EXPECT_EQ(Of<QTableView>(window, "rtvNotas")->columnWidth(1), qt::Pixels(2700));
  };
  RunAt(0, 1, isWider, InList(Qt::Key_Escape));
}

TEST_F(RetivoTest, AFailureWhenTheEditBeginsOrEndsComesOut) {
  form->rtvNotas.FinEdicion = [] { throw RuntimeError(ErrorNumber::MissingMember); };
  Then(At(0, 1), ClickOffered(1));
  EXPECT_THROW(form->ShowModal(), RuntimeError);
  form = std::make_shared<frmPrueba>();
  form->rtvNotas.InicioEdicion = [] { throw RuntimeError(ErrorNumber::NoCurrentRecord); };
  Then(At(0, 1), ListIs(false));
  EXPECT_THROW(form->ShowModal(), RuntimeError);
}

}  // namespace
}  // namespace quorvane::test
