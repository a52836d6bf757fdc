#pragma once

#include <cstddef>
#include <string>

namespace quorvane::bench {

/// A statement that the module executed, with the number of rows that it got.
struct RecordedStatement {
  std::string text;
  std::size_t rows = 0;
};

}  // namespace quorvane::bench
