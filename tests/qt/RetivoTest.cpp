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

using Texts = std::vector<std::string>;

QListWidget& Entries(const qt::FormWindow& window) {
  return *OpenedList(window)->findChild<QListWidget*>();
}

QString Refusal(const qt::FormWindow& window) {
  const auto* refusal = OpenedList(window)->findChild<QLabel*>("rechazo");
  return refusal->isVisible() ? refusal->text() : QString();
}

// Gestures on the table, and in the list that a cell has opened: list cells are the columns 1 and 2
// of two rows.

Gesture At(int row, int column) { return ClickCell("rtvNotas", row, column); }

Gesture OnGrid(Qt::Key key, Qt::KeyboardModifiers with = {}) { return Key("rtvNotas", key, with); }

Gesture InList(Qt::Key key) {
  return [=](auto& window) { QTest::keyClick(ListFilter(window), key); };
}

Gesture InList(const char* text) {
  return [=](auto& window) { QTest::keyClicks(ListFilter(window), text); };
}

/// In the place of what stands there.
Gesture InListAnew(const char* text) {
  return Steps([](auto& window) { ListFilter(window)->selectAll(); }, InList(text));
}

Gesture ClickOffered(int entry) {
  return [=](auto& window) {
    const auto& entries = Entries(window);
    QTest::mouseClick(entries.viewport(), Qt::LeftButton, {}, CellCentre(entries, entry, 0));
  };
}

/// From now on the cells offer that.
Gesture Offering(const Texts& texts) {
  return [=](auto& window) {
    auto& grid = FormOf(window).rtvNotas;
    grid.InicioEdicion = [&grid, texts] {
      grid.ListaLimpiar(1);
      for (const auto& text : texts) grid.ListaAnadir(1, text, 0);
    };
  };
}

// What then holds.

Gesture Offers(const Texts& expected) {
  return [=](auto& window) {
    Texts texts;
    for (int i = 0; i < Entries(window).count(); ++i)
      if (const auto* entry = Entries(window).item(i); !entry->isHidden())
        texts.push_back(entry->text().toStdString());
    EXPECT_EQ(texts, expected);
  };
}

/// The open list says that no grade is called so.
Gesture Refuses(const QString& typed) {
  return [=](auto& window) {
    ASSERT_NE(OpenedList(window), nullptr) << "nothing is dropped in silence";
    EXPECT_EQ(Refusal(window), "No hay ninguna nota «" + typed + "»");
  };
}

/// On the screen and in the form.
Gesture Shows(int row, int column, const std::string& text) {
  return [=](auto& window) {
    EXPECT_EQ(CellText(window, "rtvNotas", row, column), text);
    EXPECT_EQ(FormOf(window).rtvNotas.TextMatrix(row + 1, column), text);
  };
}

const Texts kAll{" ", "1", "5", "10", "Notable", "Sobresaliente", "Óptimo"};
const auto kTab = OnGrid(Qt::Key_Tab);
const auto kBacktab = OnGrid(Qt::Key_Backtab, Qt::ShiftModifier);

const std::vector<Play> kListPlays{
    {"AClickOpensTheListAndAClickChooses",
     Steps(At(1, 1), Offers(kAll), ClickOffered(2), ListIs(false), Shows(1, 1, "5")),
     {"inicio 2,1", "fin 3"}},
    {"TheListOpensOnWhatTheCellShows",
     Steps(
         At(0, 1), [](auto& window) { EXPECT_EQ(Entries(window).currentRow(), 3); },
         InList(Qt::Key_Up), InList(Qt::Key_Return)),
     {"inicio 1,1", "fin 3"}},
    {"EscGivesUpWithoutAnEnd",
     Steps(At(0, 1), InList(Qt::Key_Escape), ListIs(false), IsVisible, Shows(0, 1, "10")),
     {"inicio 1,1"}},
    {"TheBlankOpensTheWholeList",
     Steps(At(0, 0), kTab, OnGrid(Qt::Key_Space), Offers(kAll), InList(Qt::Key_Escape)),
     {"inicio 1,1"}},
    {"ADoubleClickOpensTheListOnce",
     Steps(
         DoubleClickCell("rtvNotas", 0, 1),
         [](auto& window) { EXPECT_EQ(window.focusWidget(), ListFilter(window)); },
         InList(Qt::Key_Escape)),
     {"inicio 1,1"}},
    {"AColumnThatEditsThroughNoListOpensNone",
     Steps(At(0, 0), OnGrid(Qt::Key_F2), ListIs(false)),
     {}},
    {"TypingOpensTheListAndNarrowsIt",
     Steps(At(0, 0), OnGrid(Qt::Key_Right), Type("rtvNotas", "1"), Offers({"1", "10"}), InList("0"),
           Offers({"10"}), InList(Qt::Key_Return)),
     {"inicio 1,1", "fin 2"}},
    // What ends is told by the entry's place among those that came.
    {"NumbersStandByValueAndWhatIsTypedExactlyStandsFirst",
     Steps(Offering({" ", "10", "Notable alto", "Notable", "9,5", "2"}), At(0, 1),
           Offers({" ", "2", "Notable alto", "Notable", "9,5", "10"}), InList("notable"),
           Offers({"Notable", "Notable alto"}), InList(Qt::Key_Return)),
     {"fin 3"}},
    {"OfTwoEntriesOfOneTextTheFirstIsChosen",
     Steps(Offering({" ", "Apto alto", "Apto", "APTO"}), At(0, 1), InList("apto"),
           Offers({"Apto", "APTO", "Apto alto"}), InList(Qt::Key_Return)),
     {"fin 2"}},
    // In the end there is nothing to choose.
    {"NarrowingKnowsNeitherCaseNorAccentsAndFindsInside",
     Steps(At(0, 1), InList("opt"), Offers({"Óptimo"}), InListAnew("SALI"),
           Offers({"Sobresaliente"}), InListAnew("zz"), Offers({}), InList(Qt::Key_Return),
           Refuses("zz"), InList(Qt::Key_Escape)),
     {"inicio 1,1"}},
    {"TabChoosesAndGoesOnToTheNextListCell",
     Steps(At(0, 2), InList("5"), InList(Qt::Key_Tab), StandsAt(1, 1), Shows(0, 2, "5")),
     {"inicio 1,2", "fin 3"}},
    {"TabOnATextThatFitsNoEntryStaysAndSaysSo",
     Steps(
         At(0, 1), InList("11"), InList(Qt::Key_Tab), Refuses("11"), InList(Qt::Key_Backtab),
         ListIs(true), InList(Qt::Key_Backspace),
         [](auto& window) { EXPECT_EQ(Refusal(window), "") << "it is judged anew"; },
         InList(Qt::Key_Tab), Shows(0, 1, "1")),
     {"inicio 1,1", "fin 1"}},
    {"TabInTheListOfTheLastCellTakesTheGradeAndStays",
     Steps(At(1, 2), InList("5"), InList(Qt::Key_Tab), ListIs(false), Shows(1, 2, "5"),
           StandsAt(1, 2), HasKeyboard("rtvNotas")),
     {"inicio 2,2", "fin 3"}},
    {"AGradeThatWasTypedIsTakenByAClickOnAButtonThatThenDoesItsWork",
     Steps(At(0, 1), InList("5"), "cmdPagina", ListIs(false), Shows(0, 1, "5")),
     {"inicio 1,1", "fin 3", "pagina"}},
    {"AGradeThatWasTypedIsTakenByAClickOnAnotherCellThatThenOpens",
     Steps(At(0, 1), InList("5"), At(1, 2), Shows(0, 1, "5"), InList(Qt::Key_Escape)),
     {"inicio 1,1", "fin 3", "inicio 2,2"}},
    {"AListInWhichNothingWasTypedIsLeftByAClickAsByEsc",
     Steps(At(0, 1), InList(Qt::Key_Down), "cmdPagina", ListIs(false), Shows(0, 1, "10")),
     {"inicio 1,1", "pagina"}},
    {"ATextThatFitsNoEntryHoldsClicksBack",
     Steps(
         At(0, 1), InList("11"), "cmdPagina", Refuses("11"), At(0, 0), At(0, 1),
         DoubleClickCell("rtvNotas", 0, 1), Close, IsVisible,
         [](auto& window) {
           EXPECT_EQ(window.focusWidget(), ListFilter(window));
           EXPECT_EQ(ListFilter(window)->text(), "11");
         },
         InList(Qt::Key_Escape), Shows(0, 1, "10")),
     {"inicio 1,1"}},
    // No button is pressed.
    {"TabWalksTheListCellsAndStaysAtTheLast",
     Steps(At(0, 0), kTab, StandsAt(0, 1), kTab, StandsAt(0, 2), kTab, StandsAt(1, 1), kTab,
           StandsAt(1, 2), kTab, kTab, HasKeyboard("rtvNotas"), StandsAt(1, 2),
           OnGrid(Qt::Key_Return), HasKeyboard("rtvNotas"), kBacktab, kBacktab, kBacktab,
           StandsAt(0, 1), kBacktab, StandsAt(0, 1), HasKeyboard("rtvNotas")),
     {}},
    {"CtrlTabLeavesTheTableFromAnyCell",
     Steps(At(0, 0), OnGrid(Qt::Key_Tab, Qt::ControlModifier), HasKeyboard("cmdAceptar"),
           OnGrid(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier),
           HasKeyboard("msgRejilla")),
     {}},
    {"TheWheelMovesNothingUnderAnOpenList",
     Steps(
         At(0, 1), InList("5"),
         [](auto& window) {
           const auto* table = Of<QTableView>(window, "rtvNotas");
           const auto at = table->viewport()->rect().center();
           QWheelEvent wheel(at, table->viewport()->mapToGlobal(at), {}, {0, -120}, {}, {},
                             Qt::NoScrollPhase, false);
           QApplication::sendEvent(table->viewport(), &wheel);
           EXPECT_EQ(ListFilter(window)->text(), "5");
         },
         InList(Qt::Key_Return)),
     {"inicio 1,1", "fin 3"}},
    {"ACellThatOffersNothingOpensNoList",
     Steps(
         At(0, 1), InList(Qt::Key_Escape),
         [](auto& window) {
           auto& form = FormOf(window);
           form.rtvNotas.InicioEdicion = [&form] { form.Log("nada"); };
         },
         At(1, 1), ListIs(false), OnGrid(Qt::Key_F2), OnGrid(Qt::Key_7), ListIs(false),
         OnGrid(Qt::Key_Return), ListIs(false), IsVisible),
     {"inicio 1,1", "nada", "nada", "nada"}},
    {"TheArrowKeysGoFromCellToCell",
     Steps(At(0, 0), OnGrid(Qt::Key_Right), OnGrid(Qt::Key_Down), StandsAt(1, 1)),
     {}},
};

INSTANTIATE_TEST_SUITE_P(Retivo, PlayTest, ::testing::ValuesIn(kListPlays), NameOfPlay);

using RetivoTest = PruebaTest;

// While the cell still shows what it did: a host that keeps what is typed needs both.
TEST_F(RetivoTest, TabGoesThroughATableInWhichNothingOpens) {
  form->rtvNotas.Rows(1);
  Run([](auto& window) { Of(window, "msgRejilla")->setFocus(); }, Key("msgRejilla", Qt::Key_Tab),
      HasKeyboard("rtvNotas"), kTab, HasKeyboard("cmdAceptar"));
}

TEST_F(RetivoTest, TheHostIsToldOfAnEditBeforeTheForm) {
  screen.EditEnding = [this](const Form& edited, const Retivo& grid, int entry) {
    EXPECT_EQ(&edited, form.get());
    EXPECT_EQ(&grid, &form->rtvNotas);
    form->log.push_back("anfitrión " + grid.TextMatrix(grid.Row(), grid.Col()) + " " +
                        std::to_string(entry));
  };
  Run(At(0, 1), InList(Qt::Key_Escape), At(0, 1), ClickOffered(2));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "inicio 1,1", "anfitrión 10 3", "fin 3"));
}

TEST_F(RetivoTest, AnotherWindowThatGetsTheKeyboardTakesWhatWasTyped) {
  QWidget other;
  const auto goAway = [&other](auto&) {
    other.show();
    QApplication::setActiveWindow(&other);
  };
  const auto comeBack = [](auto& window) { QApplication::setActiveWindow(&window); };
  Run(
      At(0, 1), InList("nota"), goAway, ListIs(false), Shows(0, 1, "Notable"), comeBack,
      HasKeyboard("rtvNotas"), At(0, 2), InList("11"), goAway, Refuses("11"), comeBack,
      [](auto& window) { EXPECT_TRUE(ListFilter(window)->hasFocus()); }, InList(Qt::Key_Escape));
  EXPECT_THAT(seen, ElementsAre("inicio 1,1", "fin 4", "inicio 1,2"));
}

TEST_F(RetivoTest, TheOpenListLiesInTheWindowAndItsCellStaysInSight) {
  Run([](qt::FormWindow& window) {
    for (const auto size : {QSize(656, 408), QSize(900, 700), QSize(500, 300)}) {
      window.resize(size);
      for (const auto row : {0, 1}) {
        At(row, 1)(window);
        const auto* list = OpenedList(window);
        ASSERT_NE(list, nullptr);
        EXPECT_TRUE(window.rect().contains(list->geometry())) << size.width();
        EXPECT_FALSE(list->geometry().intersects(list->Cell())) << size.width();
        InList(Qt::Key_Escape)(window);
      }
    }
  });
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

TEST_F(RetivoTest, TheFormTakesAKeyBeforeTheGrid) {
  std::vector<int> keys;
  form->OnKey = [&keys](int& key) {
    keys.push_back(key);
    if (key == 40) key = 0;
  };
  Run(At(0, 0), OnGrid(Qt::Key_Down), StandsAt(0, 0), OnGrid(Qt::Key_Right), StandsAt(0, 1));
  EXPECT_THAT(keys, ElementsAre(40, 39));
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
  Run(At(0, 1), isWider, InList(Qt::Key_Escape));
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
