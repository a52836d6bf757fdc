#include "adapters/qt/views/ButtonView.h"

#include <QPushButton>

#include "adapters/qt/views/IconStore.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/HeldWork.h"

namespace quorvane::qt {

ButtonView::ButtonView(FormWindow& window, CommandButton& button)
    : ControlView(window, button), button_(button), push_(new QPushButton(Surface())) {
  Use(push_);
  // The button that has the keyboard takes Enter, as it takes the blank; where work is held, no
  // other does.
  const auto held = HoldsWork(window.Model());
  push_->setAutoDefault(!held);
  push_->setDefault(button.Default && !held);
  QObject::connect(push_, &QPushButton::clicked, push_, [this] { Press(); });
}

void ButtonView::Press() {
  Gesture([this] { button_.Press(); });
  Window().TakePress(button_);
}

void ButtonView::Mark() {
  auto font = push_->font();
  font.setBold(true);
  push_->setFont(font);
  push_->setToolTip("Hay cambios sin guardar.");
  push_->setAccessibleDescription(push_->toolTip());
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
