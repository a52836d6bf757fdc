#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace quorvane {

constexpr char AsciiLower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

/// Equal but for the case of the letters a to z: how names of columns, controls and components
/// are matched.
constexpr bool EqualNoCase(std::string_view one, std::string_view other) {
  return one.size() == other.size() &&
         std::equal(one.begin(), one.end(), other.begin(),
                    [](char a, char b) { return a == b || AsciiLower(a) == AsciiLower(b); });
}

inline std::string AsciiLower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return AsciiLower(c); });
  return lower;
}

}  // namespace quorvane
