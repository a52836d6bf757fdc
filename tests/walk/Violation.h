#pragma once

#include <stdexcept>

namespace quorvane::test {

/// What must never happen has happened. No error of the runtime's, so that nothing in the module
/// catches it: it comes out past all forms.
class Violation : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace quorvane::test
