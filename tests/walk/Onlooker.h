#pragma once

#include <string>

#include "platform/controls/Form.h"

namespace quorvane::test {

/// Looks over the shoulder of a user at random. What it throws ends all that he has open. This one
/// looks the other way.
class Onlooker {
 public:
  Onlooker() = default;
  virtual ~Onlooker() = default;
  Onlooker(Onlooker&&) = delete;

  /// The form is about to be loaded: it has read nothing yet.
  virtual void Loading(Form& /*form*/) {}
  /// The form has been loaded and is about to be shown.
  virtual void Opened(Form& /*form*/) {}
  /// A gesture on that form is about to be made that may save it.
  virtual void Accepting(const Form& /*form*/) {}
  /// A gesture has been made, here or in a form further in.
  virtual void Settle() {}
  /// The user has been shown that message.
  virtual void Told(const std::string& /*text*/) {}

 protected:
  static bool IsRegister(const Form& form) { return form.Name() == "frmAlumnoPendiente"; }
  /// The forms of step two. Those of step one bear the same names with a 1 behind.
  static bool EntersGrades(const Form& form) {
    return form.Name().starts_with("frmNota") && !form.Name().ends_with("1");
  }
};

}  // namespace quorvane::test
