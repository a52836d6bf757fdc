#include "register/DualList.h"

namespace quorvane {

void MoveSelected(ListBox& from, ListBox& to) {
  const auto index = from.ListIndex();
  if (index < 0) return;
  to.AddItem(from.List(index), from.ItemData(index));
  from.RemoveItem(index);
}

void MoveAll(ListBox& from, ListBox& to) {
  for (int i = 0; i < from.ListCount(); ++i) to.AddItem(from.List(i), from.ItemData(i));
  from.Clear();
}

}  // namespace quorvane
