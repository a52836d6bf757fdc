#include "adapters/qt/views/LabelView.h"

#include <QLabel>

#include "adapters/qt/views/Units.h"

namespace quorvane::qt {
namespace {

constexpr auto kMandatoryMark = " <span style='color:#c62828; font-weight:bold'>*</span>";

}  // namespace

LabelView::LabelView(FormWindow& window, Label& label)
    : ControlView(window, label), label_(label), text_(new QLabel(Surface())) {
  text_->setTextFormat(Qt::PlainText);
  Use(text_);
}

void LabelView::Show() {
  const auto caption = Text(label_.Caption());
  text_->setTextFormat(label_.Mandatory() ? Qt::RichText : Qt::PlainText);
  text_->setText(label_.Mandatory() ? caption.toHtmlEscaped() + kMandatoryMark : caption);
  text_->setToolTip(Text(label_.ToolTipText()));
}

}  // namespace quorvane::qt
