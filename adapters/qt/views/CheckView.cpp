#include "adapters/qt/views/CheckView.h"

#include <QCheckBox>

#include "adapters/qt/views/Units.h"

namespace quorvane::qt {

CheckView::CheckView(FormWindow& window, CheckBox& check)
    : ControlView(window, check), check_(check), box_(new QCheckBox(Surface())) {
  Use(box_);
  QObject::connect(box_, &QCheckBox::clicked, box_, [this](bool checked) {
    Gesture([this, checked] { check_.Value(checked ? 1 : 0); });
  });
}

void CheckView::Show() {
  box_->setText(Text(check_.Caption()));
  box_->setChecked(check_.Value() == 1);
}

}  // namespace quorvane::qt
