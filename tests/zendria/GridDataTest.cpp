// Keys on many cells of a grid where what a cell shows doesn't tell what is stored for it.

#include <QClipboard>
#include <QGuiApplication>
#include <QTableView>
#include <gtest/gtest.h>

#include "adapters/qt/grid/GridTable.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

constexpr int kMeasure = 6;

/// "Lengua" of three students: the rows of the grid are the pending rows 1, 2 and 4.
class GridDataTest : public RescueTest {
 protected:
  /// Presses those keys on that cell.
  static void PressAt(const Window& window, int row, int column,
                      const std::vector<QKeyCombination>& keys) {
    auto& table = dynamic_cast<qt::GridTable&>(Robot::Grid(window));
    table.setFocus();
    table.GoTo(table.model()->index(row, column));
    for (const auto key : keys) QTest::keyClick(&table, key.key(), key.keyboardModifiers());
  }
  static Lines Column(const Window& window, int column) {
    Lines texts;
    for (int row = 0; row < 3; ++row)
      texts.push_back(Robot::CellText(window, row, column).trimmed().toStdString());
    return texts;
  }
  /// Does that in the grades of "Lengua" in that form, and saves them.
  void Grade(const Flow& flow, const Step& act) {
    Use(flow, [act](Window& window) {
      act(window);
      Robot::Click(window, "cmdAceptar");
    });
  }
  /// Of the rows of the grid, in their order.
  [[nodiscard]] Lines Stored(const std::string& table, const std::string& column,
                             const char* evaluation) const {
    return school_.Rows("SELECT " + column + " FROM " + table + " WHERE CodNumEvaluacion=" +
                        evaluation + " AND CodAlumnoPte_MatDet<>3 ORDER BY CodAlumnoPte_MatDet");
  }
  [[nodiscard]] Lines Measures() const { return Stored("EvaluacionActaPte", "RE_AC_DIV", "4"); }
  [[nodiscard]] Lines Grades() const { return Stored("EvaluacionPte", "CodNota", "1"); }
  /// The measures that are loaded, in a course that has them.
  void Measures(const Lines& measures) const {
    school_.Sql("UPDATE Curso SET RE_AC=-1");
    const char* const pending[] = {"1", "2", "4"};
    for (std::size_t at = 0; at < 3; ++at)
      school_.Sql("UPDATE EvaluacionActaPte SET CodNota=105, RE_AC_DIV=" + measures[at] +
                  " WHERE CodAlumnoPte_MatDet=" + pending[at]);
  }

  const QKeyCombination copy_{Qt::ControlModifier, Qt::Key_C};
  const QKeyCombination paste_{Qt::ControlModifier, Qt::Key_V};
  const QKeyCombination fill_{Qt::ControlModifier, Qt::Key_D};
  const QKeyCombination extend_{Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_Down};
  const QKeyCombination delete_{Qt::NoModifier, Qt::Key_Delete};
  const QKeyCombination open_{Qt::NoModifier, Qt::Key_F2};
};

TEST_F(GridDataTest, AMeasureThatItsListSpellsOtherwiseIsChosenPastedAndFilledDown) {
  Measures({"2", "0", "2"});
  Grade(kBySubject.Final(), [this](Window& window) {
    EXPECT_EQ(Column(window, kMeasure),
              Lines({"Adaptacion curricular", "", "Adaptacion curricular"}));
    Robot::Grade(window, 2, kMeasure, "Adap");
    EXPECT_EQ(Column(window, kMeasure)[2], "Adaptación curricular");
    EXPECT_FALSE(window.isWindowModified()) << "the same measure";
    PressAt(window, 0, kMeasure, {copy_});
    PressAt(window, 1, kMeasure, {paste_});
    EXPECT_EQ(Column(window, kMeasure)[1], "Adaptación curricular");
    EXPECT_TRUE(window.isWindowModified());
    PressAt(window, 1, kMeasure, {delete_});
    EXPECT_EQ(Column(window, kMeasure)[1], "");
    PressAt(window, 0, kMeasure, {fill_});
  });
  EXPECT_EQ(Measures(), Lines({"2", "2", "2"}));
  EXPECT_THAT(robot_.messages, IsEmpty());
}

TEST_F(GridDataTest, AValueThatIsNotShownIsKeptWhenFillingDownAndGoesByDelete) {
  Measures({"1", "0", "3"});
  Grade(kBySubject.Final(), [this](Window& window) {
    PressAt(window, 2, kMeasure, {open_});
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isWindowModified()) << "nothing was chosen";
    QGuiApplication::clipboard()->setText("Refuerzó educativo");
    PressAt(window, 1, kMeasure, {paste_});
    EXPECT_EQ(Column(window, kMeasure)[1], "") << "no text of this form";
    EXPECT_EQ(Column(window, kMeasure), Lines({"Refuerzo educativo", "", ""}));
    PressAt(window, 1, kMeasure, {delete_});
    EXPECT_FALSE(window.isWindowModified()) << "nothing was there";
    PressAt(window, 0, kMeasure, {fill_});
    EXPECT_EQ(Column(window, kMeasure), Lines({"Refuerzo educativo", "Refuerzo educativo", ""}));
  });
  EXPECT_EQ(Measures(), Lines({"1", "1", "3"}));
  Grade(kBySubject.Final(), [this](Window& window) {
    PressAt(window, 2, kMeasure, {delete_});
    EXPECT_TRUE(window.isWindowModified());
  });
  EXPECT_EQ(Measures(), Lines({"1", "1", "0"}));
  EXPECT_THAT(robot_.messages, ElementsAre(HasSubstr("no está en la lista de esa casilla")));
}

TEST_F(GridDataTest, OfTwoGradesOfOneTextTheOneThatStandsThereIsFilledDown) {
  school_.Sql(
      "UPDATE Nota SET DescripcionCorta='6' WHERE IDNota=107;"
      "UPDATE EvaluacionPte SET CodNota=0 WHERE CodNumEvaluacion=1;"
      "UPDATE EvaluacionPte SET CodNota=107 WHERE CodNumEvaluacion=1 AND CodAlumnoPte_MatDet IN (1,4)");
  Grade(kBySubject, [this](Window& window) {
    EXPECT_EQ(Column(window, 1), Lines({"6", "", "6"}));
    Robot::Grade(window, 2, 1, "6");
    EXPECT_TRUE(window.isWindowModified()) << "it is the first of the two now";
    PressAt(window, 0, 1, {fill_});
    EXPECT_EQ(Column(window, 1), Lines({"6", "6", "6"}));
    PressAt(window, 0, 1, {copy_});
    PressAt(window, 2, 1, {paste_});
  });
  EXPECT_EQ(Grades(), Lines({"107", "107", "106"})) << "what shows the text already isn't touched";
  Grade(kBySubject, [this](Window& window) {
    PressAt(window, 0, 1, {open_});
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(window.isWindowModified()) << "the very grade that it stands for";
    PressAt(window, 0, 1, {extend_, extend_, fill_});
  });
  EXPECT_EQ(Grades(), Lines({"107", "107", "107"}));
}

}  // namespace
}  // namespace quorvane::test
