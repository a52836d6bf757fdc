#pragma once

#include <stdexcept>

namespace quorvane::guion {

/// A user could not do what the command asks for: the reason, in Spanish. It is thrown before the
/// gesture reaches a form, and ends the command alone.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quorvane::guion
