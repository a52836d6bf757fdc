#pragma once

#include "platform/controls/ItemList.h"

namespace quorvane {

/// A list that shows its entries, one of which can be selected.
class ListBox : public ItemList {
 public:
  using ItemList::ItemList;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "ListBox"; }
};

}  // namespace quorvane
