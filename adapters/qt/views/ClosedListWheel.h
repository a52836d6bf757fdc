#pragma once

class QComboBox;

namespace quorvane::qt {

/// Leaves the wheel over the closed list of that box to what lies under it: rolled by on the way
/// through a window, it would choose another entry.
void LeaveWheelOf(QComboBox& box);

}  // namespace quorvane::qt
