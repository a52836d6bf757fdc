#pragma once

namespace quorvane::qt {

/// The code that a form knows a key of Qt's by: 38 for the arrow up, 65 for A. 0 for a key that it
/// knows by none.
int KeyCode(int qtKey);

}  // namespace quorvane::qt
