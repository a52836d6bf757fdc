#pragma once

#include <string>

#include "adapters/guion/player/Guion.h"
#include "adapters/guion/player/Refusal.h"
#include "platform/controls/Control.h"

namespace quorvane::guion {

/// The active form. Refused when no form is open, or the form takes nothing from the user.
Form& ActiveForm(const Guion& guion);

/// The control of that name on the active form. Refused when there is none that the user can act
/// on.
Control& UsableControl(const Guion& guion, const std::string& name);

/// The same, as a control of that class; refused with `otherwise` when it is of another.
template <class T>
T& UsableControl(const Guion& guion, const std::string& name, const char* otherwise) {
  auto* const typed = dynamic_cast<T*>(&UsableControl(guion, name));
  if (typed == nullptr) throw Refusal(name + " no es " + otherwise);
  return *typed;
}

}  // namespace quorvane::guion
