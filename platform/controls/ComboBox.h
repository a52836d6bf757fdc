#pragma once

#include "platform/controls/ItemList.h"

namespace quorvane {

/// A drop-down list; the user picks an entry and types none.
class ComboBox : public ItemList {
 public:
  using ItemList::ItemList;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "ComboBox"; }
};

}  // namespace quorvane
