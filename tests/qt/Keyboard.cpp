#include "tests/qt/Keyboard.h"

#include <QComboBox>
#include <QTest>
#include <stdexcept>

#include "adapters/qt/views/ControlView.h"

namespace quorvane::test {
namespace {

/// More than any form has of controls and cells.
constexpr int kEnough = 400;

std::string ControlOf(const qt::FormWindow& window, const QWidget* widget) {
  for (const auto& view : window.Views()) {
    const auto& name = view->Model().Name();
    if (KeyWidget(window, name) == widget) return name;
  }
  throw std::logic_error(window.Model().Name() + ": the keyboard is on no control");
}

void PressTab(const qt::FormWindow& window, bool forward) {
  if (forward)
    Press(window, Qt::Key_Tab);
  else
    Press(window, Qt::Key_Backtab, Qt::ShiftModifier);
}

}  // namespace

QWidget* KeyWidget(const qt::FormWindow& window, const std::string& control) {
  auto* widget = window.Widget(control);
  if (widget == nullptr) throw std::logic_error("no " + control);
  while (widget->focusProxy() != nullptr) widget = widget->focusProxy();
  return widget;
}

void Press(const qt::FormWindow& window, Qt::Key key, Qt::KeyboardModifiers with) {
  if (window.focusWidget() == nullptr)
    throw std::logic_error(window.Model().Name() + ": nothing has the keyboard");
  QTest::keyClick(window.focusWidget(), key, with);
}

std::vector<std::string> TabWalk(const qt::FormWindow& window, bool forward) {
  const auto* first = window.focusWidget();
  std::vector<std::string> walk{ControlOf(window, first)};
  for (int i = 0; i < kEnough; ++i) {
    PressTab(window, forward);
    const auto name = ControlOf(window, window.focusWidget());
    if (name == walk.back()) continue;
    if (window.focusWidget() == first) return walk;
    walk.push_back(name);
  }
  throw std::logic_error(window.Model().Name() + ": Tab doesn't come back");
}

void TabTo(const qt::FormWindow& window, const std::string& control) {
  const auto* wanted = KeyWidget(window, control);
  for (int i = 0; i < kEnough; ++i) {
    if (window.focusWidget() == wanted) return;
    PressTab(window, true);
  }
  throw std::logic_error(window.Model().Name() + ": Tab doesn't reach " + control);
}

void PressByKey(const qt::FormWindow& window, const std::string& button) {
  TabTo(window, button);
  Press(window, Qt::Key_Space);
}

void PickByKey(const qt::FormWindow& window, const std::string& combo, int index) {
  TabTo(window, combo);
  const auto* box = dynamic_cast<QComboBox*>(window.Widget(combo));
  for (int i = 0; i < kEnough && box->currentIndex() < index; ++i) Press(window, Qt::Key_Down);
  if (box->currentIndex() != index) throw std::logic_error("no such entry in " + combo);
}

}  // namespace quorvane::test
