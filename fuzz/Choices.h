#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvane::fuzz {

/// Turns the fuzzer's bytes into choices, so that a changed byte changes one choice. Behind the
/// last byte all choices are 0, which every generator takes for its shortest way to the end.
class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  /// From 0 up to, not including, `count`; `count` is 256 at most.
  std::size_t Below(std::size_t count) { return Byte() % count; }
  bool OneIn(std::size_t count) { return Byte() % count == 1; }

  template <typename Range>
  const auto& Of(const Range& range) {
    return range[Below(std::size(range))];
  }

 private:
  std::size_t Byte() {
    if (bytes_.empty()) return 0;
    const auto byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  std::span<const std::uint8_t> bytes_;
};

}  // namespace quorvane::fuzz
