#pragma once

#include <string_view>

#include "platform/text/AsciiCase.h"

namespace quorvane::test {

/// Whether a statement of the module only reads.
inline bool Reads(std::string_view statement) {
  constexpr std::string_view kSelect = "select";
  const auto start = statement.find_first_not_of(' ');
  return start != std::string_view::npos &&
         EqualNoCase(statement.substr(start, kSelect.size()), kSelect);
}

}  // namespace quorvane::test
