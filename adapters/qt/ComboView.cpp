#include "adapters/qt/ComboView.h"

#include <QComboBox>

#include "adapters/qt/Units.h"

namespace quorvane::qt {

ComboView::ComboView(FormWindow& window, ComboBox& combo)
    : ControlView(window, combo), combo_(combo), box_(new QComboBox(Surface())) {
  Use(box_);
  box_->setMaxVisibleItems(16);
  QObject::connect(box_, &QComboBox::activated, box_,
                   [this](int index) { Gesture([this, index] { combo_.ListIndex(index); }); });
}

bool ComboView::HasSameEntries() const {
  if (box_->count() != combo_.ListCount()) return false;
  for (int i = 0; i < box_->count(); ++i)
    if (box_->itemText(i) != LineText(combo_.List(i))) return false;
  return true;
}

void ComboView::Show() {
  box_->setAccessibleDescription(combo_.Mandatory() ? "obligatorio" : "");
  if (!HasSameEntries()) {
    box_->clear();
    for (int i = 0; i < combo_.ListCount(); ++i) box_->addItem(LineText(combo_.List(i)));
  }
  box_->setCurrentIndex(combo_.ListIndex());
}

}  // namespace quorvane::qt
