#pragma once

namespace quorvane {

/// All global instances of forms.
class FormInstances {
 public:
  /// Drops every instance without its `Form_Unload`, as the end of a program would: for a host
  /// that goes on after a failure.
  static void DropAll();

  /// For `FormInstance`: `drop` drops one instance; called twice it has no more effect.
  static void Remember(void (*drop)());
};

}  // namespace quorvane
