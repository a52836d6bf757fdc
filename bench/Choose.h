#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"

namespace quorvane::bench {

template <class T>
T& Control(const Form& form, const char* name) {
  return dynamic_cast<T&>(*form.Find(name));
}

/// The user picks the entry of that code; nothing happens without one.
inline void Choose(const Form& form, const char* name, int data) {
  auto& combo = Control<ComboBox>(form, name);
  for (int i = 0; i < combo.ListCount(); ++i)
    if (combo.ItemData(i) == data) return combo.ListIndex(i);
}

}  // namespace quorvane::bench
