#pragma once

#include <QPoint>
#include <QTest>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "adapters/qt/window/FormWindow.h"

class QAbstractItemView;
class QLineEdit;

namespace quorvane::qt {
class RetivoEditor;
}

namespace quorvane::test {

// What a user's hands do, with real mouse and key events. A control that isn't there fails the
// test with an exception.

/// What is done in a window that may come up later.
using Gesture = std::function<void(qt::FormWindow&)>;

/// The widget of that control.
template <class W = QWidget>
W* Of(const qt::FormWindow& window, const std::string& control) {
  auto* widget = dynamic_cast<W*>(window.Widget(control));
  if (widget == nullptr) throw std::logic_error("no " + control);
  return widget;
}

Gesture Click(const std::string& control);
Gesture Key(const std::string& control, Qt::Key key, Qt::KeyboardModifiers with = {});
Gesture Type(const std::string& control, const std::string& text);
/// Presses a key where the keyboard is.
Gesture Press(Qt::Key key, Qt::KeyboardModifiers with = {});

/// Opens a combo box and picks the entry of that text with Enter.
Gesture Pick(const std::string& combo, const std::string& entry);
Gesture Pick(const std::string& combo, int index);
/// Clicks the tab of that place.
Gesture ClickTab(const std::string& tabStrip, int index);
/// Clicks the square of a check box, not its text.
Gesture ClickSquare(const std::string& checkBox);

// Cells count from 0 below the headings; the entries of a list are the cells of its only column.

Gesture ClickCell(const std::string& grid, int row, int col = 0);
Gesture DoubleClickCell(const std::string& grid, int row, int col = 0);
std::string CellText(const qt::FormWindow& window, const std::string& grid, int row, int col = 0);
/// In its viewport.
QPoint CellCentre(const QAbstractItemView& grid, int row, int col);
/// The keyboard on that cell, whose list is closed.
Gesture StandOn(const std::string& grid, int row, int col);

/// The list that a cell has opened; null when none is open.
qt::RetivoEditor* OpenedList(const qt::FormWindow& window);
/// What narrows the open list; fails the test when none is open.
QLineEdit* ListFilter(const qt::FormWindow& window);
Gesture ListIs(bool open);
Gesture HasKeyboard(const std::string& control);
void IsVisible(const qt::FormWindow& window);

/// As the user does by the X.
inline void Close(qt::FormWindow& window) { window.close(); }

/// One after the other; the name of a button clicks it.
template <class... Gestures>
Gesture Steps(Gestures... gestures) {
  const auto make = [](qt::FormWindow& window, const auto& act) {
    if constexpr (std::is_convertible_v<decltype(act), const char*>)
      Click(act)(window);
    else
      act(window);
  };
  return [=](qt::FormWindow& window) { (make(window, gestures), ...); };
}

}  // namespace quorvane::test
