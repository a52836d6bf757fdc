#pragma once

#include <functional>

#include "platform/RuntimeError.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {

/// The number of the runtime error that comes out; 0 when none does.
inline std::int32_t ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace quorvane::test
