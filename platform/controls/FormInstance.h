#pragma once

#include <memory>

#include "platform/controls/FormInstances.h"

namespace quorvane {

/// The one global instance of a form, created at its first use.
template <class F>
class FormInstance {
 public:
  /// Valid until dropped; a show that runs holds it beyond that.
  static F& Get() {
    if (Slot() == nullptr) {
      Slot() = std::make_shared<F>();
      FormInstances::Remember(&Drop);
    }
    return *Slot();
  }

  /// No effect without an instance.
  static void Drop() {
    // Out of the slot first: the form's end may ask for the instance.
    const auto dropped = std::move(Slot());
    Slot() = nullptr;
  }

  [[nodiscard]] static bool Exists() { return Slot() != nullptr; }

 private:
  static std::shared_ptr<F>& Slot() {
    static std::shared_ptr<F> slot;
    return slot;
  }
};

}  // namespace quorvane
