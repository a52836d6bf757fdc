#include "adapters/qt/views/ButtonView.h"

#include <QPushButton>

#include "adapters/qt/views/IconStore.h"
#include "adapters/qt/views/Units.h"

namespace quorvane::qt {

ButtonView::ButtonView(FormWindow& window, CommandButton& button)
    : ControlView(window, button), button_(button), push_(new QPushButton(Surface())) {
  Use(push_);
  // The button that has the keyboard takes Enter, as it takes the blank.
  push_->setAutoDefault(true);
  push_->setDefault(button.Default);
  QObject::connect(push_, &QPushButton::clicked, push_, [this] { Press(); });
}

void ButtonView::Press() {
  Gesture([this] { button_.Press(); });
}

void ButtonView::Show() {
  push_->setText(Text(button_.Caption()));
  if (button_.Picture() != picture_) {
    picture_ = button_.Picture();
    push_->setIcon(IconStore::Load(picture_));
  }
  if (picture_.empty() && button_.Caption().empty() && push_->icon().isNull())
    push_->setIcon(IconStore::ForBareButton(button_.Name()));
}

}  // namespace quorvane::qt
