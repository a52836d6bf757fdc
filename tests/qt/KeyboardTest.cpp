// What a user without a mouse does, on the module's own screens.

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <stdexcept>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/SchoolScreenTest.h"

namespace quorvane::test {
namespace {

using ::testing::UnorderedElementsAreArray;
using Names = std::vector<std::string>;

// Each of these throws where the keyboard can't go.

/// More than any form has of controls and cells.
constexpr int kEnough = 400;

/// The widget that takes the keys of that control.
QWidget* KeyWidget(const qt::FormWindow& window, const std::string& control) {
  auto* widget = Of(window, control);
  while (widget->focusProxy() != nullptr) widget = widget->focusProxy();
  return widget;
}

std::string ControlWithKeyboard(const qt::FormWindow& window) {
  for (const auto& view : window.Views()) {
    const auto& name = view->Model().Name();
    if (KeyWidget(window, name) == window.focusWidget()) return name;
  }
  throw std::logic_error(window.Model().Name() + ": the keyboard is on no control");
}

/// On by Tab or back by Shift+Tab: with Ctrl out of a grid of grades, which keeps them.
void PressTab(qt::FormWindow& window, bool forward) {
  Qt::KeyboardModifiers with = forward ? Qt::NoModifier : Qt::ShiftModifier;
  for (const auto& view : window.Views())
    if (view->Model().Kind() == "Retivo" &&
        KeyWidget(window, view->Model().Name()) == window.focusWidget())
      with |= Qt::ControlModifier;
  Press(forward ? Qt::Key_Tab : Qt::Key_Backtab, with)(window);
}

/// Goes there by Tab alone.
void GoTo(qt::FormWindow& window, const std::string& control) {
  const auto* wanted = KeyWidget(window, control);
  for (int i = 0; i < kEnough; ++i) {
    if (window.focusWidget() == wanted) return;
    PressTab(window, true);
  }
  throw std::logic_error(window.Model().Name() + ": Tab doesn't reach " + control);
}

/// The controls that Tab comes by, from the first until it is there again; backwards with
/// Shift+Tab. Those that the keyboard rests on more than once in a row count once.
Names TabWalk(qt::FormWindow& window, bool forward) {
  const auto* first = window.focusWidget();
  Names walk{ControlWithKeyboard(window)};
  for (int i = 0; i < kEnough; ++i) {
    PressTab(window, forward);
    const auto name = ControlWithKeyboard(window);
    if (name == walk.back()) continue;
    if (window.focusWidget() == first) return walk;
    walk.push_back(name);
  }
  throw std::logic_error(window.Model().Name() + ": Tab doesn't come back");
}

Gesture TabTo(const std::string& control) {
  return [=](auto& window) { GoTo(window, control); };
}
/// Goes to a button by Tab and presses the blank.
Gesture PressButton(const std::string& button) {
  return Steps(TabTo(button), Press(Qt::Key_Space));
}
/// Goes to a combo box by Tab and down to the entry of that place.
Gesture PickByKey(const std::string& combo, int index) {
  return [=](auto& window) {
    GoTo(window, combo);
    const auto* box = Of<QComboBox>(window, combo);
    for (int i = 0; i < kEnough && box->currentIndex() < index; ++i) Press(Qt::Key_Down)(window);
    if (box->currentIndex() != index) throw std::logic_error("no such entry in " + combo);
  };
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
void ExpectReachable(qt::FormWindow& window) {
  const auto form = window.Model().Name();
  // A window that was behind another is told later that it is active again.
  QApplication::setActiveWindow(&window);
  Names usable;
  for (const auto& view : window.Views())
    if (const auto kind = view->Model().Kind();
        kind != "Label" && kind != "Frame" && kind != "Animation" && view->Model().Usable())
      usable.push_back(view->Model().Name());
  GoTo(window, usable.front());
  const auto walk = TabWalk(window, true);
  EXPECT_THAT(walk, UnorderedElementsAreArray(usable)) << form;
  for (std::size_t i = 1; i < walk.size(); ++i)
    EXPECT_FALSE(ReadsBackwards(PlaceOf(window, walk[i - 1]), PlaceOf(window, walk[i])))
        << form << ": " << walk[i - 1] << " before " << walk[i];

  GoTo(window, usable.front());
  auto back = TabWalk(window, false);
  std::reverse(back.begin() + 1, back.end());
  EXPECT_THAT(back, ElementsAreArray(walk)) << form;

  for (const auto& name : walk) {
    auto* widget = KeyWidget(window, name);
    GoTo(window, name);
    EXPECT_TRUE(widget->hasFocus()) << form << ": " << name;
    const auto with = widget->grab().toImage();
    PressTab(window, true);
    EXPECT_FALSE(widget->hasFocus()) << form << ": " << name;
    EXPECT_NE(with, widget->grab().toImage()) << form << ": " << name << " looks the same";
  }
}

using KeyboardTest = SchoolScreenTest;

const Gesture kByEscape = Press(Qt::Key_Escape);
const Gesture kByEnter = Press(Qt::Key_Return);

TEST_F(KeyboardTest, TheRegisterNeedsNoMouse) {
  // Enter is the default button.
  Then(PickByKey("cboTEnsenanza", 0), PickByKey("cboCurso", 2), PickByKey("cboSeccion", 0),
       ExpectReachable, TabTo("cboSeccion"), kByEnter);
  Then(ExpectReachable, PressButton("cmdListar"), TabTo("msgAlumnos"), Press(Qt::Key_End),
       Press(Qt::Key_Home), PressButton("cmdPropiedades"), TabTo("TabDatos"), Press(Qt::Key_Right),
       ExpectReachable, PressButton("cmdPropMat"), PressButton("cmdCancelar"));
  Then(ExpectReachable, kByEscape);  // the students
  Then(ExpectReachable, PressButton("cmdAgregar"), PressButton("cmdPropiedades"), kByEscape);
  Then(PickByKey("cboCurso", 0), PickByKey("cboSeccion", 0), ExpectReachable, kByEscape);
  Then(ExpectReachable, kByEscape);  // the evaluations
  Then(ExpectReachable, kByEscape);  // the teacher
  OpenNode(kRegister);
  EXPECT_THAT(messages, IsEmpty());
}

TEST_F(KeyboardTest, StudentsGoFromListToListByEnter) {
  Then(PickByKey("cboTEnsenanza", 0), PickByKey("cboCurso", 2), PickByKey("cboSeccion", 0),
       kByEnter);
  Then(PressButton("cmdListar"), PressButton("cmdCancelar"));
  const auto moveTheLast = [](auto& window) {
    const auto* left = Of<QListWidget>(window, "lstSeleccionados");
    const auto* right = Of<QListWidget>(window, "lstDisponibles");
    const auto before = left->count();
    ASSERT_GT(right->count(), 1);
    Steps(TabTo("lstDisponibles"), Press(Qt::Key_Home), Press(Qt::Key_End))(window);
    const auto last = right->item(right->count() - 1)->text();
    EXPECT_EQ(right->currentItem()->text(), last);
    Press(Qt::Key_Return)(window);
    EXPECT_EQ(left->count(), before + 1);
    EXPECT_EQ(left->item(before)->text(), last);
    EXPECT_TRUE(right->hasFocus());
  };
  Then(moveTheLast, kByEscape);
  OpenNode(kRegister);
}

class GradeKeyboardTest : public KeyboardTest, public ::testing::WithParamInterface<int> {};

/// Both steps, with an ordinary and a final evaluation.
TEST_P(GradeKeyboardTest, NeedsNoMouse) {
  const auto pickOwnChoice = [](qt::FormWindow& window) {
    for (const auto* choice : {"cboMateria", "cboAlumno"})
      if (window.Widget(choice) != nullptr) PickByKey(choice, 0)(window);
  };
  const auto escapeClosesTheListAlone = [](auto& window) {
    QTest::keyClick(ListFilter(window), Qt::Key_Escape);
    IsVisible(window);
  };
  for (const auto evaluation : {1, 3}) {
    Then(PickByKey("cboTipoEnsenanza", 0), PickByKey("cboCursos", 2), PickByKey("cboSecciones", 0),
         PickByKey("cboEvaluaciones", evaluation), pickOwnChoice, ExpectReachable,
         TabTo("cboEvaluaciones"), kByEnter);
    Then(ExpectReachable, TabTo("rtvNotasAlumno"), Press(Qt::Key_Tab), Press(Qt::Key_F2),
         escapeClosesTheListAlone, PressButton("cmdCancelar"));
  }
  Then(kByEscape);
  OpenNode(GetParam());
  EXPECT_THAT(messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Nodes, GradeKeyboardTest, ::testing::Values(124, 125, 126, 127));

}  // namespace
}  // namespace quorvane::test
