#include <QComboBox>
#include <QTableView>
#include <chrono>
#include <string>
#include <vector>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/BusyCores.h"
#include "tests/teclado/Hasty.h"

namespace quorvane::test {
namespace {

/// What stands in a form once the keys have been taken.
struct Outcome {
  std::vector<std::string> cells;  ///< or combo boxes
  std::string keyboard;            ///< the control that has it, with the grid's cell
  bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << ::testing::PrintToString(outcome.cells) << " at " << outcome.keyboard;
}

struct Form {
  int node;
  const char* name;
};

class HastyScreenTest : public SchoolScreenTest, public ::testing::WithParamInterface<Form> {
 protected:
  using Act = std::function<void(qt::FormWindow&, const Hasty::Next& done)>;
  using Look = std::function<Outcome(const qt::FormWindow&)>;

  // Hands take their time, and on a busy machine more.
  HastyScreenTest() { Patience(std::chrono::minutes(5)); }

  /// Opens the form, acts in it, gives what stands there, and leaves without saving.
  virtual Outcome Play(const Act& act) = 0;
  /// The step of that in which it acts, from `begin` on.
  Gesture Acts(const Gesture& begin, const Act& act, const Gesture& end) {
    return [=](qt::FormWindow& window) {
      begin(window);
      Rest::In(window, [&window, act, end] { act(window, [&window, end] { end(window); }); });
    };
  }
  Outcome TypeWithCare(const QStringList& keys) {
    return Play([&keys](auto&, const auto& done) { Hasty::TypeWithCare(keys, done); });
  }
  Outcome Type(const QStringList& keys, int apart) {
    return Play([&keys, apart](auto&, const auto& done) { Hasty::Type(keys, apart, done); });
  }
  /// What comes of the keys with care comes of them so many milliseconds apart, too. Gives it.
  Outcome SameAtAnySpeed(const QStringList& keys, const std::vector<int>& speeds) {
    const auto careful = TypeWithCare(keys);
    for (const auto apart : speeds) EXPECT_EQ(Type(keys, apart), careful) << apart;
    return careful;
  }
  Outcome SameOnABusyMachine(const QStringList& keys) {
    const auto careful = TypeWithCare(keys);
    const BusyCores busy(2);
    for (const auto apart : {10, 60}) EXPECT_EQ(Type(keys, apart), careful) << apart;
    return careful;
  }

  static std::string Keyboard(const qt::FormWindow& window) {
    const auto* const widget = window.focusWidget();
    return widget == nullptr ? "nothing" : widget->objectName().toStdString();
  }
};

/// The combo boxes of step one.
class FastCombosTest : public HastyScreenTest {
 protected:
  Outcome Play(const Act& act) override {
    Outcome outcome;
    const auto begin = [](auto& window) { Of(window, "cboTipoEnsenanza")->setFocus(); };
    Then(Acts(begin, act, [&outcome](auto& window) {
      for (const auto& view : window.Views())
        if (const auto* box = qobject_cast<const QComboBox*>(view->Widget()))
          outcome.cells.push_back(view->Model().Name() + ": " + box->currentText().toStdString());
      outcome.keyboard = Keyboard(window);
      window.close();
    }));
    OpenNode(GetParam().node);
    return outcome;
  }
};

// A list that a key opens and another closes is a window of its own here.
TEST_P(FastCombosTest, ChoosingByKeysGivesTheSameAtAnySpeed) {
  SameOnABusyMachine({"space", "Down", "Return", "Tab", "space", "Down", "Down", "Return", "Tab",
                      "space", "Home", "Return", "Tab", "space", "Down", "Return", "Tab"});
}

constexpr Form kByStudent{124, "Alumno"};
constexpr Form kOfSection{127, "SeccionAlumno"};
const auto kFormName = [](const auto& form) { return form.param.name; };

INSTANTIATE_TEST_SUITE_P(Nodes, FastCombosTest, ::testing::Values(kByStudent, kOfSection),
                         kFormName);

/// The grid of step two, from its first grade on.
class FastKeysTest : public HastyScreenTest {
 protected:
  Outcome Play(const Act& act) override {
    Outcome outcome;
    Then(ChooseGrades(kSecond));
    const auto begin = Steps(ClickCell(kGrid, 0, 0), StandOn(kGrid, 0, 1));
    Then(Acts(begin, act, [&outcome](auto& window) {
      const auto* const table = Of<QTableView>(window, kGrid);
      for (int row = 0; row < table->model()->rowCount(); ++row)
        for (int col = 0; col < table->model()->columnCount(); ++col)
          outcome.cells.push_back(CellText(window, kGrid, row, col));
      outcome.keyboard = Keyboard(window);
      if (window.focusWidget() == table)
        outcome.keyboard += " " + std::to_string(table->currentIndex().row()) + "," +
                            std::to_string(table->currentIndex().column());
      Click("cmdCancelar")(window);
    }));
    Then(Close);
    OpenNode(GetParam().node);
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), left_);
    return outcome;
  }
  /// Those keys, and right behind them a click on the name in the first row.
  static void TypeAndClickName(const qt::FormWindow& window, const QStringList& keys,
                               const Hasty::Next& next) {
    const auto* const table = Of<QTableView>(window, kGrid);
    Hasty::TypeAndClick(keys, 10, *table->viewport(), CellCentre(*table, 0, 0), next);
  }

  static constexpr const char* kGrid = "rtvNotasAlumno";
  const QStringList gradeAndOn{"7", "Tab", "Tab", "Tab"};

 private:
  const std::vector<std::string> left_ = school.Rows("SELECT COUNT(*) FROM PublicacionPte");
};

TEST_P(FastKeysTest, AGradeAndThreeTabsGiveTheSameAtAnySpeed) {
  EXPECT_EQ(SameAtAnySpeed(gradeAndOn, {0, 10, 60}).cells.at(1), "7");
}

TEST_P(FastKeysTest, GradesThatGoDownAColumnGiveTheSameAtAnySpeed) {
  const auto careful = SameAtAnySpeed({"7", "Return", "5", "Return"}, {0, 10});
  // The forms of one student and one subject have one row here, which the keys don't leave.
  const auto oneRow = GetParam().node > 125;
  EXPECT_EQ(careful.cells.at(1), oneRow ? "5" : "7");
}

TEST_P(FastKeysTest, SoTheyDoOnABusyMachine) { SameOnABusyMachine(gradeAndOn); }

TEST_P(FastKeysTest, KeysThatOpenAndCloseListsInTurnGiveTheSameAtAnySpeed) {
  SameAtAnySpeed({"8",         "Return", "F2",        "Down",   "Return", "5", "Escape",
                  "6",         "Tab",    "Shift+Tab", "space",  "End",    "0", "BackSpace",
                  "Down",      "Return", "9",         "Escape", "1",      "0", "Tab",
                  "Shift+Tab", "4",      "Return",    "F2",     "Escape"},
                 {0, 10});
}

TEST_P(FastKeysTest, AGradeThatIsLeftByAClickIsTaken) {
  const auto outcome =
      Play([](auto& window, const auto& done) { TypeAndClickName(window, {"8"}, done); });
  EXPECT_EQ(outcome.cells.at(1), "8");
  EXPECT_EQ(outcome.keyboard, "rtvNotasAlumno 0,0");
}

TEST_P(FastKeysTest, ATextThatFitsNoGradeHoldsTheClickBack) {
  Play([](auto& window, const auto& done) {
    const auto before = CellText(window, kGrid, 0, 1);
    TypeAndClickName(window, {"1", "1"}, [&window, before, done] {
      EXPECT_EQ(CellText(window, kGrid, 0, 1), before);
      const auto* const grid = Of<QTableView>(window, kGrid);
      EXPECT_EQ(grid->currentIndex().column(), 1);
      EXPECT_NE(window.focusWidget(), grid) << "the list has the keyboard";
      Hasty::Type({"BackSpace", "Tab"}, 10, [&window, done] {
        EXPECT_EQ(CellText(window, kGrid, 0, 1), "1");
        done();
      });
    });
  });
}

INSTANTIATE_TEST_SUITE_P(Ordinary, FastKeysTest,
                         ::testing::Values(kByStudent, Form{125, "Materia"},
                                           Form{126, "SeccionMateria"}, kOfSection),
                         kFormName);

}  // namespace
}  // namespace quorvane::test
