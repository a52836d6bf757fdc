#pragma once

#include <QDialog>

namespace quorvane::zendria {

struct RescuedGrades;

/// Shows the grades that weren't saved, with the path of their file, to be copied.
class RescueWindow : public QDialog {
 public:
  explicit RescueWindow(const RescuedGrades& rescued, QWidget* parent);
};

}  // namespace quorvane::zendria
