#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include "platform/RuntimeError.h"

namespace quorvane::test {

/// What the failed statement in it tells; "no error" where none failed.
inline std::string StatementError(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed)) << error.Number();
    return error.Description();
  }
  return "no error";
}

}  // namespace quorvane::test
