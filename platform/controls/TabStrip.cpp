#include "platform/controls/TabStrip.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"

namespace quorvane {

void TabStrip::AddTab(std::string caption) {
  tabs_.push_back(std::move(caption));
  if (selected_ == 0) selected_ = 1;
  Touch();
}

void TabStrip::RemoveTab(int index) {
  if (index < 1 || index > TabCount()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  tabs_.erase(tabs_.begin() + (index - 1));
  selected_ = std::min(index < selected_ ? selected_ - 1 : selected_, TabCount());
  Touch();
}

const std::string& TabStrip::TabCaption(int index) const {
  if (index < 1 || index > TabCount()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  return tabs_[static_cast<std::size_t>(index - 1)];
}

void TabStrip::SelectedTab(int index) {
  if (index < 1 || index > TabCount()) throw RuntimeError(ErrorNumber::InvalidProperty);
  Assign(selected_, index);
  if (Click) Click();
}

}  // namespace quorvane
