#include "platform/controls/Control.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"

namespace quorvane {
namespace {

std::int32_t Length(std::int32_t length) {
  if (length < 0) throw RuntimeError(ErrorNumber::InvalidProperty);
  return length;
}

}  // namespace

Control::Control(Form& form, std::string name, const Frame* container)
    : form_(form), name_(std::move(name)), container_(container) {
  form_.Register(*this);
}

void Control::Visible(bool visible) { Assign(visible_, visible); }
void Control::Enabled(bool enabled) { Assign(enabled_, enabled); }
void Control::Mandatory(bool mandatory) { Assign(mandatory_, mandatory); }
void Control::Left(std::int32_t left) { Assign(left_, left); }
void Control::Top(std::int32_t top) { Assign(top_, top); }
void Control::Width(std::int32_t width) { Assign(width_, Length(width)); }
void Control::Height(std::int32_t height) { Assign(height_, Length(height)); }

void Control::Place(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
  Left(left);
  Top(top);
  Width(width);
  Height(height);
}

void Control::SetFocus() { form_.Focus(this); }

void Control::ToFront() { Assign(layer_, form_.FrontLayer() + 1); }

void Control::ToBack() { Assign(layer_, form_.BackLayer() - 1); }

bool Control::Shown() const noexcept {
  if (!visible_) return false;
  return container_ == nullptr || container_->Shown();
}

bool Control::Usable() const noexcept {
  if (!visible_ || !enabled_) return false;
  return container_ == nullptr ? form_.Enabled() : container_->Usable();
}

}  // namespace quorvane
