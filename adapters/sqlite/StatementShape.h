#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::sqlite {

/// What all statements have in common that differ in their numbers alone: the lifted text, with a
/// question mark for each number.
class StatementShape {
 public:
  /// `gaps` are the places of those question marks in `text`, in order.
  StatementShape(std::string text, std::vector<std::size_t> gaps)
      : text_(std::move(text)), gaps_(std::move(gaps)) {}

  [[nodiscard]] const std::string& Text() const noexcept { return text_; }

  /// Whether lifting that statement gives this shape, and then its values; else they are anything.
  /// Far quicker than lifting: what stands between the numbers is only compared.
  bool Fits(std::string_view statement, std::vector<std::int64_t>& values) const;

 private:
  std::string text_;
  std::vector<std::size_t> gaps_;
};

/// Reads the whole number whose digits begin at `at`, which then stands behind them. False when
/// there are none, or more than surely fit 64 bits; the engine takes those for reals.
bool ReadNumber(std::string_view statement, std::size_t& at, std::int64_t& value);

}  // namespace quorvane::sqlite
