#pragma once

#include <string>
#include <string_view>

namespace quorvane::odbc {

/// UTF-8 as the wide functions of the drivers take it. What is no UTF-8 becomes U+FFFD.
std::u16string ToWide(std::string_view text);

/// And back. Half a surrogate pair becomes U+FFFD.
std::string FromWide(std::u16string_view text);

}  // namespace quorvane::odbc
