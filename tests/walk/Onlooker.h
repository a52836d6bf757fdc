#pragma once

#include <string>

#include "platform/controls/Form.h"

namespace quorvane::test {

/// Looks over the shoulder of a user at random. What it throws ends all that he has open.
class Onlooker {
 public:
  Onlooker() = default;
  virtual ~Onlooker() = default;
  Onlooker(Onlooker&&) = delete;

  /// The form is about to be loaded: it has read nothing yet.
  virtual void Loading(Form& /*form*/) {}
  /// The form has been loaded and is about to be shown.
  virtual void Opened(Form& form) = 0;
  /// A gesture on that form is about to be made that may save it.
  virtual void Accepting(const Form& form) = 0;
  /// A gesture has been made, here or in a form further in.
  virtual void Settle() = 0;
  /// The user has been shown that message.
  virtual void Told(const std::string& /*text*/) {}
};

}  // namespace quorvane::test
