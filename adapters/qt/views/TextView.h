#pragma once

#include <QObject>

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/TextBox.h"

class QKeyEvent;
class QLineEdit;

namespace quorvane::qt {

/// A line to type into: each key is offered to the form before it becomes text.
class TextView : public QObject, public ControlView {
 public:
  TextView(FormWindow& window, TextBox& box);

 protected:
  void Show() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Dropped(const QKeyEvent& key);

  TextBox& box_;
  QLineEdit* line_;
};

}  // namespace quorvane::qt
