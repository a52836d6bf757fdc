#pragma once

#include <QLabel>

namespace quorvane::qt {

/// The line below a grid that tells its keys: as many lines as its width makes of it.
class GridHint : public QLabel {
 public:
  explicit GridHint(QWidget* parent);

  /// Takes the lowest part of that room and gives back what is left of it for the grid; all of it,
  /// and out of sight, where the grid needs it.
  QRect TakeFrom(QRect room);
};

}  // namespace quorvane::qt
