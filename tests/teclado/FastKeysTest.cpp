#include <QComboBox>
#include <QTableView>
#include <gmock/gmock.h>
#include <memory>

#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/teclado/Hasty.h"
#include "tests/teclado/Rest.h"

namespace quorvane::test {
namespace {

using ::testing::IsEmpty;

/// What stands in a grade form once the keys have been taken.
struct Outcome {
  std::vector<std::string> cells;
  std::string keyboard;  ///< the control that has it, with the grid's cell
  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << ::testing::PrintToString(outcome.cells) << " at " << outcome.keyboard;
}

Outcome LookAtGrid(const qt::FormWindow& window) {
  Outcome outcome;
  const auto* const table = Of<QTableView>(window, "rtvNotasAlumno");
  const auto* const cells = table->model();
  for (int row = 0; row < cells->rowCount(); ++row)
    for (int col = 0; col < cells->columnCount(); ++col)
      outcome.cells.push_back(cells->index(row, col).data().toString().toStdString());
  const auto* const widget = window.focusWidget();
  outcome.keyboard = widget == nullptr ? "nothing" : widget->objectName().toStdString();
  if (widget == table)
    outcome.keyboard += " " + std::to_string(table->currentIndex().row()) + "," +
                        std::to_string(table->currentIndex().column());
  return outcome;
}

/// The node, and which of the evaluations of step one.
struct Form {
  std::uint8_t node;
  const char* name;
};

class FastKeysTest : public SchoolScreenTest, public ::testing::WithParamInterface<Form> {
 protected:
  // Hands take their time, and on a busy machine more.
  FastKeysTest() { Patience(std::chrono::minutes(5)); }

  using Act = std::function<void(qt::FormWindow&, const std::function<void()>& done)>;

  /// Opens step two, acts in it, gives what stands there, and leaves without saving.
  Outcome Play(const Act& act) {
    Outcome outcome;
    Then([](qt::FormWindow& window) { Choose(window); });
    Then([&outcome, act](qt::FormWindow& window) {
      auto* const table = Of<QTableView>(window, "rtvNotasAlumno");
      ClickCell(window, "rtvNotasAlumno", 0, 0);
      table->setFocus();
      table->setCurrentIndex(table->model()->index(0, 1));
      Rest::In(window, [&window, &outcome, act] {
        act(window, [&window, &outcome] {
          outcome = LookAtGrid(window);
          Click(window, "cmdCancelar");
        });
      });
    });
    Then([](qt::FormWindow& window) { window.close(); });
    OpenNode(GetParam().node);
    ExpectDone();
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), left_);
    return outcome;
  }
  Outcome TypeWithCare(const QStringList& keys) {
    return Play([&keys](qt::FormWindow& /*window*/, const std::function<void()>& done) {
      Hasty::TypeWithCare(keys, done);
    });
  }
  Outcome Type(const QStringList& keys, int apart) {
    return Play([&keys, apart](qt::FormWindow& /*window*/, const std::function<void()>& done) {
      Hasty::Type(keys, apart, done);
    });
  }

 private:
  static void Choose(qt::FormWindow& window) {
    Pick(window, "cboTipoEnsenanza", 0);
    Pick(window, "cboCursos", "3º ESO");
    Pick(window, "cboSecciones", 0);
    Pick(window, "cboEvaluaciones", "2ª Evaluación");
    for (const auto* choice : {"cboMateria", "cboAlumno"})
      if (window.Widget(choice) != nullptr) Pick(window, choice, 0);
    Click(window, "cmdNotaManual1(0)");
  }

  const std::vector<std::string> left_ = school.Rows("SELECT COUNT(*) FROM PublicacionPte");
};

const QStringList kGradeAndOn{"7", "Tab", "Tab", "Tab"};

TEST_P(FastKeysTest, AGradeAndThreeTabsGiveTheSameAtAnySpeed) {
  const auto careful = TypeWithCare(kGradeAndOn);
  EXPECT_EQ(careful.cells.at(1), "7");
  for (const auto apart : {0, 10, 60}) EXPECT_EQ(Type(kGradeAndOn, apart), careful) << apart;
}

TEST_P(FastKeysTest, GradesThatGoDownAColumnGiveTheSameAtAnySpeed) {
  const QStringList keys{"7", "Return", "5", "Return"};
  const auto careful = TypeWithCare(keys);
  // The forms of one student and one subject have one row here, which the keys don't leave.
  const auto oneRow = GetParam().node > 125;
  EXPECT_EQ(careful.cells.at(1), oneRow ? "5" : "7");
  for (const auto apart : {0, 10}) EXPECT_EQ(Type(keys, apart), careful) << apart;
}

TEST_P(FastKeysTest, SoTheyDoOnABusyMachine) {
  const auto careful = TypeWithCare(kGradeAndOn);
  const BusyMachine busy;
  for (const auto apart : {10, 60}) EXPECT_EQ(Type(kGradeAndOn, apart), careful) << apart;
}

TEST_P(FastKeysTest, KeysThatOpenAndCloseListsInTurnGiveTheSameAtAnySpeed) {
  const QStringList keys{"8",         "Return", "F2",        "Down",   "Return", "5", "Escape",
                         "6",         "Tab",    "Shift+Tab", "space",  "End",    "0", "BackSpace",
                         "Down",      "Return", "9",         "Escape", "1",      "0", "Tab",
                         "Shift+Tab", "4",      "Return",    "F2",     "Escape"};
  const auto careful = TypeWithCare(keys);
  for (const auto apart : {0, 10}) EXPECT_EQ(Type(keys, apart), careful) << apart;
}

TEST_P(FastKeysTest, AGradeThatIsLeftByAClickIsTaken) {
  const auto outcome = Play([](qt::FormWindow& window, const std::function<void()>& done) {
    const auto* const table = Of<QTableView>(window, "rtvNotasAlumno");
    const auto name = table->visualRect(table->model()->index(0, 0)).center();
    Hasty::TypeAndClick({"8"}, 10, *table->viewport(), name, done);
  });
  EXPECT_EQ(outcome.cells.at(1), "8");
  EXPECT_EQ(outcome.keyboard, "rtvNotasAlumno 0,0");
}

TEST_P(FastKeysTest, ATextThatFitsNoGradeHoldsTheClickBack) {
  Play([](qt::FormWindow& window, const std::function<void()>& done) {
    const auto* const table = Of<QTableView>(window, "rtvNotasAlumno");
    const auto before = CellText(window, "rtvNotasAlumno", 0, 1);
    const auto name = table->visualRect(table->model()->index(0, 0)).center();
    Hasty::TypeAndClick({"1", "1"}, 10, *table->viewport(), name, [&window, before, done] {
      EXPECT_EQ(CellText(window, "rtvNotasAlumno", 0, 1), before);
      const auto* const grid = Of<QTableView>(window, "rtvNotasAlumno");
      EXPECT_EQ(grid->currentIndex().column(), 1);
      EXPECT_NE(window.focusWidget(), grid) << "the list has the keyboard";
      Hasty::Type({"BackSpace", "Tab"}, 10, [&window, done] {
        EXPECT_EQ(CellText(window, "rtvNotasAlumno", 0, 1), "1");
        done();
      });
    });
  });
}

INSTANTIATE_TEST_SUITE_P(Ordinary, FastKeysTest,
                         ::testing::Values(Form{124, "Alumno"}, Form{125, "Materia"},
                                           Form{126, "SeccionMateria"}, Form{127, "SeccionAlumno"}),
                         [](const auto& form) { return form.param.name; });

}  // namespace
}  // namespace quorvane::test
