#pragma once

#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"

namespace quorvane::test {

// What a user without a mouse does. Each throws where the keyboard can't go.

/// The widget that takes the keys of that control.
QWidget* KeyWidget(const qt::FormWindow& window, const std::string& control);

/// The controls that Tab comes by, from the first until it is there again; backwards with
/// Shift+Tab. Those that the keyboard rests on more than once in a row count once.
std::vector<std::string> TabWalk(const qt::FormWindow& window, bool forward = true);

/// Presses a key where the keyboard is.
void Press(const qt::FormWindow& window, Qt::Key key, Qt::KeyboardModifiers with = {});

/// Goes there by Tab alone.
void TabTo(const qt::FormWindow& window, const std::string& control);
/// Goes to a button by Tab and presses the blank.
void PressByKey(const qt::FormWindow& window, const std::string& button);
/// Goes to a combo box by Tab and down to the entry of that place.
void PickByKey(const qt::FormWindow& window, const std::string& combo, int index);

}  // namespace quorvane::test
