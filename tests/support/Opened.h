#pragma once

#include <utility>

namespace quorvane::test {

/// A connection that is open from its beginning.
template <class C>
class Opened : public C {
 public:
  template <class... Arguments>
  explicit Opened(Arguments&&... arguments) : C(std::forward<Arguments>(arguments)...) {
    C::Open();
  }
};

}  // namespace quorvane::test
