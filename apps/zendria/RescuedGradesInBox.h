#pragma once

class QMessageBox;

namespace quorvane::zendria {

struct RescuedGrades;

/// Adds a button to the box that shows the grades in a window and leaves the box open. Where no
/// file has them, they stand in the box itself too. `rescued` outlives the box.
void AddRescuedGrades(QMessageBox& box, const RescuedGrades& rescued);

}  // namespace quorvane::zendria
