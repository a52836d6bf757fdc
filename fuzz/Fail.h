#pragma once

#include <cstdlib>
#include <iostream>
#include <string>

namespace quorvane::fuzz {

/// What must hold doesn't: the fuzzer keeps the input that ended the program.
[[noreturn]] inline void Fail(const std::string& what) {
  std::cerr << what << std::endl;
  std::abort();
}

}  // namespace quorvane::fuzz
