#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Control.h"

namespace quorvane {

/// The entries of a combo box or list box: each a text with a number, its item data. Entries count
/// from 0; the list index is that of the selected entry, -1 for none.
class ItemList : public Control {
 public:
  using Control::Control;

  void AddItem(const std::string& text, std::int32_t itemData = 0);
  /// Error 380 for an entry that doesn't exist. Nothing stays selected when it was the selected
  /// one; the selection follows its entry otherwise.
  void RemoveItem(int index);
  /// Leaves nothing selected, and raises no event.
  void Clear();

  [[nodiscard]] int ListCount() const noexcept { return static_cast<int>(entries_.size()); }
  [[nodiscard]] const std::string& List(int index) const;  ///< error 381 beyond the entries
  [[nodiscard]] std::int32_t ItemData(int index) const;    ///< error 381 beyond the entries
  /// The item data of the selected entry; error 381 when there is none.
  [[nodiscard]] std::int32_t SelectedData() const { return ItemData(listIndex_); }
  /// The text of the selected entry, empty when there is none.
  [[nodiscard]] std::string Text() const;

  [[nodiscard]] int ListIndex() const noexcept { return listIndex_; }
  /// Selects, and raises `Click`, also when that entry is selected already. Error 380 for an
  /// entry that doesn't exist; -1 selects none.
  void ListIndex(int index);

  std::function<void()> Click;
  std::function<void()> DblClick;

  /// The user double-clicks the selected entry.
  void DoubleClick() {
    if (DblClick) DblClick();
  }

 private:
  struct Entry {
    std::string text;
    std::int32_t data = 0;
  };

  [[nodiscard]] const Entry& At(int index) const;

  std::vector<Entry> entries_;
  int listIndex_ = -1;
};

}  // namespace quorvane
