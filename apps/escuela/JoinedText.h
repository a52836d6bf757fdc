#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvane {

/// The pieces one after the other.
inline std::string Joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const auto piece : pieces) text += piece;
  return text;
}

}  // namespace quorvane
