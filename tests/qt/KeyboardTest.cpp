#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/Hands.h"
#include "tests/qt/Keyboard.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using ::testing::UnorderedElementsAreArray;
using Names = std::vector<std::string>;

bool TakesKeys(const Control& control) {
  const auto kind = control.Kind();
  return kind != "Label" && kind != "Frame" && kind != "Animation" && control.Usable();
}

QRect PlaceOf(const qt::FormWindow& window, const std::string& control) {
  const auto* widget = window.Widget(control);
  return {widget->mapTo(&window, QPoint()), widget->size()};
}

/// Nobody reads from the bottom up in a column, nor from right to left in a line.
bool ReadsBackwards(const QRect& one, const QRect& next) {
  const auto above = next.bottom() < one.top() && next.left() <= one.right();
  const auto before = next.right() < one.left() && next.top() <= one.bottom();
  return above || before;
}

/// Each control that can be used has the keyboard once, in the order in which one reads, shows
/// that it has it, and Shift+Tab goes the same way back.
void ExpectReachable(const qt::FormWindow& window) {
  const auto form = window.Model().Name();
  // A window that was behind another is told later that it is active again.
  QApplication::setActiveWindow(const_cast<qt::FormWindow*>(&window));
  Names usable;
  for (const auto& view : window.Views())
    if (TakesKeys(view->Model())) usable.push_back(view->Model().Name());
  TabTo(window, usable.front());
  const auto walk = TabWalk(window);
  EXPECT_THAT(walk, UnorderedElementsAreArray(usable)) << form;
  for (std::size_t i = 1; i < walk.size(); ++i)
    EXPECT_FALSE(ReadsBackwards(PlaceOf(window, walk[i - 1]), PlaceOf(window, walk[i])))
        << form << ": " << walk[i - 1] << " before " << walk[i];

  TabTo(window, usable.front());
  auto back = TabWalk(window, false);
  std::reverse(back.begin() + 1, back.end());
  EXPECT_THAT(back, ElementsAreArray(walk)) << form;

  for (const auto& name : walk) {
    auto* widget = KeyWidget(window, name);
    TabTo(window, name);
    EXPECT_TRUE(widget->hasFocus()) << form << ": " << name;
    const auto with = widget->grab().toImage();
    Press(window, Qt::Key_Tab, Qt::ControlModifier);
    if (widget->hasFocus()) Press(window, Qt::Key_Tab);
    EXPECT_FALSE(widget->hasFocus()) << form << ": " << name;
    EXPECT_NE(with, widget->grab().toImage()) << form << ": " << name << " looks the same";
  }
}

class KeyboardTest : public SchoolScreenTest {
 protected:
  /// Looks at a form and leaves it by Esc.
  void LookAndEscape() {
    Then([](qt::FormWindow& window) {
      ExpectReachable(window);
      Press(window, Qt::Key_Escape);
    });
  }
};

TEST_F(KeyboardTest, TheRegisterNeedsNoMouse) {
  Then([](qt::FormWindow& window) {
    PickByKey(window, "cboTEnsenanza", 0);
    PickByKey(window, "cboCurso", 2);
    PickByKey(window, "cboSeccion", 0);
    ExpectReachable(window);
    TabTo(window, "cboSeccion");
    Press(window, Qt::Key_Return);  // the default button
  });
  Then([](qt::FormWindow& window) {
    ExpectReachable(window);
    PressByKey(window, "cmdListar");
    TabTo(window, "msgAlumnos");
    Press(window, Qt::Key_End);
    Press(window, Qt::Key_Home);
    PressByKey(window, "cmdPropiedades");
    TabTo(window, "TabDatos");
    Press(window, Qt::Key_Right);
    ExpectReachable(window);
    PressByKey(window, "cmdPropMat");
    Press(window, Qt::Key_Escape);
  });
  LookAndEscape();  // the students
  Then([](qt::FormWindow& window) {
    ExpectReachable(window);
    PressByKey(window, "cmdAgregar");
    PressByKey(window, "cmdPropiedades");
    Press(window, Qt::Key_Escape);
  });
  Then([](qt::FormWindow& window) {
    PickByKey(window, "cboCurso", 0);
    PickByKey(window, "cboSeccion", 0);
    ExpectReachable(window);
    Press(window, Qt::Key_Escape);
  });
  LookAndEscape();  // the evaluations
  LookAndEscape();  // the teacher
  OpenNode(123);
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(KeyboardTest, StudentsGoFromListToListByEnter) {
  Then([](qt::FormWindow& window) {
    PickByKey(window, "cboTEnsenanza", 0);
    PickByKey(window, "cboCurso", 2);
    PickByKey(window, "cboSeccion", 0);
    Press(window, Qt::Key_Return);
  });
  Then([](qt::FormWindow& window) {
    PressByKey(window, "cmdListar");
    Press(window, Qt::Key_Escape);
  });
  Then([](qt::FormWindow& window) {
    const auto* left = Of<QListWidget>(window, "lstSeleccionados");
    const auto* right = Of<QListWidget>(window, "lstDisponibles");
    const auto before = left->count();
    ASSERT_GT(right->count(), 1);
    TabTo(window, "lstDisponibles");
    Press(window, Qt::Key_Home);
    Press(window, Qt::Key_End);
    const auto last = right->item(right->count() - 1)->text();
    EXPECT_EQ(right->currentItem()->text(), last);
    Press(window, Qt::Key_Return);
    EXPECT_EQ(left->count(), before + 1);
    EXPECT_EQ(left->item(before)->text(), last);
    EXPECT_TRUE(right->hasFocus());
    Press(window, Qt::Key_Escape);
  });
  OpenNode(123);
}

class GradeKeyboardTest : public KeyboardTest, public ::testing::WithParamInterface<int> {};

/// Both steps, with an ordinary and a final evaluation.
TEST_P(GradeKeyboardTest, NeedsNoMouse) {
  for (const auto evaluation : {1, 3}) {
    Then([evaluation](qt::FormWindow& window) {
      PickByKey(window, "cboTipoEnsenanza", 0);
      PickByKey(window, "cboCursos", 2);
      PickByKey(window, "cboSecciones", 0);
      PickByKey(window, "cboEvaluaciones", evaluation);
      for (const auto* choice : {"cboMateria", "cboAlumno"})
        if (window.Widget(choice) != nullptr) PickByKey(window, choice, 0);
      ExpectReachable(window);
      TabTo(window, "cboEvaluaciones");
      Press(window, Qt::Key_Return);
    });
    Then([](qt::FormWindow& window) {
      ExpectReachable(window);
      TabTo(window, "rtvNotasAlumno");
      Press(window, Qt::Key_Tab);
      Press(window, Qt::Key_F2);
      ASSERT_NE(OpenedList(window), nullptr) << window.Model().Name();
      QTest::keyClick(ListFilter(window), Qt::Key_Escape);
      EXPECT_TRUE(window.isVisible()) << "Esc closes the list alone";
      Press(window, Qt::Key_Escape);
    });
  }
  Then([](qt::FormWindow& window) { Press(window, Qt::Key_Escape); });
  OpenNode(static_cast<std::uint8_t>(GetParam()));
  EXPECT_THAT(messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Nodes, GradeKeyboardTest, ::testing::Values(124, 125, 126, 127));

}  // namespace
}  // namespace quorvane::test
