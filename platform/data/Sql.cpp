#include "platform/data/Sql.h"

#include <array>
#include <charconv>

namespace quorvane {
namespace {

/// The longest whole number of 64 bits, with its sign.
constexpr std::size_t kLongestNumber = 20;
/// Room for a number as they mostly are.
constexpr std::size_t kUsualNumber = 6;

}  // namespace

std::string FillSql(std::string_view text, std::initializer_list<std::int64_t> numbers) {
  std::string filled;
  filled.reserve(text.size() + numbers.size() * kUsualNumber);
  for (const auto number : numbers) {
    const auto place = text.find("{}");
    filled.append(text.substr(0, place));
    std::array<char, kLongestNumber> digits;
    const auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    filled.append(std::string_view(digits.data(), end));
    text.remove_prefix(place + 2);
  }
  filled.append(text);
  return filled;
}

}  // namespace quorvane
