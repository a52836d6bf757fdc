#include "platform/data/Value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

constexpr auto kInteger = 1U;
constexpr auto kReal = 2U;
constexpr auto kText = 3U;

std::string RealText(double number) {
  char buffer[32];
  const auto end = std::to_chars(std::begin(buffer), std::end(buffer), number).ptr;
  return {std::begin(buffer), end};
}

}  // namespace

bool ParseNumber(const std::string& text, double& number) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return false;
  auto plain = text.substr(first, text.find_last_not_of(" \t") - first + 1);
  std::replace(plain.begin(), plain.end(), ',', '.');
  const auto* begin = plain.data();
  const auto* const end = begin + plain.size();
  if (*begin == '+') ++begin;
  // from_chars takes no plus, but would take a minus behind one.
  if (begin == end || *begin == '+' || (*begin == '-' && begin != plain.data())) return false;
  // from_chars also reads "inf" and "nan", which are no numbers here.
  if (plain.find_first_not_of("0123456789.+-eE") != std::string::npos) return false;
  double result = 0;
  const auto read = std::from_chars(begin, end, result);
  if (read.ec != std::errc() || read.ptr != end) return false;
  number = result;
  return true;
}

double Value::Number() const {
  switch (content_.index()) {
    case kInteger:
      return static_cast<double>(std::get<kInteger>(content_));
    case kReal:
      return std::get<kReal>(content_);
    case kText: {
      double number = 0;
      if (!ParseNumber(std::get<kText>(content_), number))
        throw RuntimeError(ErrorNumber::TypeMismatch);
      return number;
    }
    default:
      return 0;
  }
}

std::int64_t Value::Whole(std::int64_t least, std::int64_t most) const {
  if (content_.index() == kInteger) {
    const auto number = std::get<kInteger>(content_);
    if (number < least || number > most) throw RuntimeError(ErrorNumber::Overflow);
    return number;
  }
  const auto rounded = std::nearbyint(Number());
  // Written so that a number that is none is an overflow too.
  if (!(rounded >= static_cast<double>(least) && rounded <= static_cast<double>(most)))
    throw RuntimeError(ErrorNumber::Overflow);
  return static_cast<std::int64_t>(rounded);
}

std::int32_t Value::Long() const {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(Whole(Limits::min(), Limits::max()));
}

std::int16_t Value::Integer() const {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(Whole(Limits::min(), Limits::max()));
}

std::uint8_t Value::Byte() const { return static_cast<std::uint8_t>(Whole(0, 255)); }

bool Value::Flag() const {
  if (content_.index() == kInteger) return std::get<kInteger>(content_) != 0;
  return Number() != 0;
}

std::string Value::Text() const {
  switch (content_.index()) {
    case kInteger:
      return std::to_string(std::get<kInteger>(content_));
    case kReal:
      return RealText(std::get<kReal>(content_));
    case kText:
      return std::get<kText>(content_);
    default:
      return {};
  }
}

Value Value::AfterZero() const { return Value("0" + Text()); }

std::uint8_t ToByte(std::int64_t number) { return Value(number).Byte(); }

std::int16_t ToInteger(std::int64_t number) { return Value(number).Integer(); }

}  // namespace quorvane
