#pragma once

class QFrame;

namespace quorvane::qt {

/// Draws the border of a list or table in the colour of the selection while it has the keyboard.
/// An empty one has no entry that could show it, and the colour of a full one says nothing.
void ShowFocusOnBorder(QFrame& frame);

}  // namespace quorvane::qt
