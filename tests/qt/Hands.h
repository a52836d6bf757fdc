#pragma once

#include <QTest>
#include <functional>
#include <string>

#include "adapters/qt/window/FormWindow.h"

class QLineEdit;
class QTableView;

namespace quorvane::qt {
class RetivoEditor;
}

namespace quorvane::test {

// What a user's hands do, with real mouse and key events. A control that isn't there fails the
// test with an exception.

/// The widget of that control.
template <class W = QWidget>
W* Of(const qt::FormWindow& window, const std::string& control) {
  auto* widget = dynamic_cast<W*>(window.Widget(control));
  if (widget == nullptr) throw std::logic_error("no " + control);
  return widget;
}

void Click(const qt::FormWindow& window, const std::string& control);
void Key(const qt::FormWindow& window, const std::string& control, Qt::Key key,
         Qt::KeyboardModifiers with = {});
void Type(const qt::FormWindow& window, const std::string& control, const std::string& text);

/// Opens a combo box and picks the entry of that text with Enter.
void Pick(const qt::FormWindow& window, const std::string& combo, const std::string& entry);
void Pick(const qt::FormWindow& window, const std::string& combo, int index);
/// Clicks an entry of a list.
void ClickEntry(const qt::FormWindow& window, const std::string& list, int index);
void DoubleClickEntry(const qt::FormWindow& window, const std::string& list, int index);

/// Cells count from 0 below the headings.
void ClickCell(const qt::FormWindow& window, const std::string& grid, int row, int col);
void DoubleClickCell(const qt::FormWindow& window, const std::string& grid, int row, int col);
std::string CellText(const qt::FormWindow& window, const std::string& grid, int row, int col);

/// The list that a cell has opened; null when none is open.
qt::RetivoEditor* OpenedList(const qt::FormWindow& window);
/// What narrows the open list; fails the test when none is open.
QLineEdit* ListFilter(const qt::FormWindow& window);

// The same, laid out for a window that comes up later.

using Gesture = std::function<void(qt::FormWindow&)>;

inline Gesture Click(const std::string& control) {
  return [=](qt::FormWindow& window) { Click(window, control); };
}
inline Gesture Key(const std::string& control, Qt::Key key, Qt::KeyboardModifiers with = {}) {
  return [=](qt::FormWindow& window) { Key(window, control, key, with); };
}
inline Gesture Type(const std::string& control, const std::string& text) {
  return [=](qt::FormWindow& window) { Type(window, control, text); };
}
inline Gesture Pick(const std::string& combo, const std::string& entry) {
  return [=](qt::FormWindow& window) { Pick(window, combo, entry); };
}
inline Gesture Pick(const std::string& combo, int index) {
  return [=](qt::FormWindow& window) { Pick(window, combo, index); };
}
inline Gesture ClickCell(const std::string& grid, int row, int col) {
  return [=](qt::FormWindow& window) { ClickCell(window, grid, row, col); };
}
inline Gesture DoubleClickCell(const std::string& grid, int row, int col) {
  return [=](qt::FormWindow& window) { DoubleClickCell(window, grid, row, col); };
}
/// Clicks the tab of that place.
Gesture ClickTab(const std::string& tabStrip, int index);
/// Clicks the square of a check box, not its text.
Gesture ClickSquare(const std::string& checkBox);

}  // namespace quorvane::test
