#include "platform/controls/ItemList.h"

#include "platform/RuntimeError.h"

namespace quorvane {

void ItemList::AddItem(const std::string& text, std::int32_t itemData) {
  entries_.push_back({text, itemData});
  Touch();
}

void ItemList::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) throw RuntimeError(ErrorNumber::InvalidProperty);
  entries_.erase(entries_.begin() + index);
  if (index == listIndex_)
    listIndex_ = -1;
  else if (index < listIndex_)
    --listIndex_;
  Touch();
}

void ItemList::Clear() {
  entries_.clear();
  listIndex_ = -1;
  Touch();
}

const ItemList::Entry& ItemList::At(int index) const {
  if (index < 0 || index >= ListCount()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  return entries_[static_cast<std::size_t>(index)];
}

const std::string& ItemList::List(int index) const { return At(index).text; }

std::int32_t ItemList::ItemData(int index) const { return At(index).data; }

std::string ItemList::Text() const { return listIndex_ < 0 ? std::string() : List(listIndex_); }

void ItemList::ListIndex(int index) {
  if (index < -1 || index >= ListCount()) throw RuntimeError(ErrorNumber::InvalidProperty);
  listIndex_ = index;
  Touch();
  if (Click) Click();
}

}  // namespace quorvane
