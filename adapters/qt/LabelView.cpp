#include "adapters/qt/LabelView.h"

#include <QLabel>

#include "adapters/qt/Units.h"

namespace quorvane::qt {

LabelView::LabelView(FormWindow& window, Label& label)
    : ControlView(window, label), label_(label), text_(new QLabel(Surface())) {
  text_->setTextFormat(Qt::PlainText);
  Use(text_);
}

void LabelView::Show() {
  text_->setText(Text(label_.Caption()));
  text_->setToolTip(Text(label_.ToolTipText()));
}

}  // namespace quorvane::qt
