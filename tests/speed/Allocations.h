#pragma once

#include <cstddef>

namespace quorvane::test {

/// How often this program has asked the standard allocator for memory. What the engine's C code
/// takes doesn't count.
std::size_t Allocations() noexcept;

}  // namespace quorvane::test
