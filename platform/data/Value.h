#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace quorvane {

/// A value of a column or of a member of the session: Null, an integer, a real number or a text.
/// The conversions are the runtime's: Null gives 0, False and the empty text; a number that its
/// target can't hold is error 6, a text that is no number error 13. Reals round to even.
class Value {
 public:
  Value() = default;  ///< Null
  Value(std::int64_t number) : content_(number) {}
  Value(int number) : content_(std::int64_t{number}) {}
  Value(double number) : content_(number) {}
  Value(std::string text) : content_(std::move(text)) {}
  Value(const char* text) : content_(std::string(text)) {}

  [[nodiscard]] bool IsNull() const noexcept { return content_.index() == 0; }
  [[nodiscard]] bool IsText() const noexcept { return content_.index() == 3; }

  [[nodiscard]] std::int32_t Long() const;     ///< 32 bits
  [[nodiscard]] std::int16_t Integer() const;  ///< 16 bits
  [[nodiscard]] std::uint8_t Byte() const;     ///< 8 bits, unsigned
  [[nodiscard]] bool Flag() const;             ///< True for any value but 0
  [[nodiscard]] std::string Text() const;      ///< numbers in decimal
  [[nodiscard]] double Number() const;         ///< for comparisons by value

  /// "0" followed by the value's text, read as a number: Null gives 0, a negative number is 13.
  [[nodiscard]] Value AfterZero() const;

 private:
  [[nodiscard]] std::int64_t Whole(std::int64_t least, std::int64_t most) const;

  std::variant<std::monostate, std::int64_t, double, std::string> content_;
};

/// A field of 8 bits takes this number, or it is error 6.
std::uint8_t ToByte(std::int64_t number);
/// A field of 16 bits takes this number, or it is error 6.
std::int16_t ToInteger(std::int64_t number);

/// The number that a text stands for, blanks round it allowed, point or comma before decimals.
/// False when it is none; then `number` is untouched.
bool ParseNumber(const std::string& text, double& number);

}  // namespace quorvane
