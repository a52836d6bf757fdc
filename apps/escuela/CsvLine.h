#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// By it a spreadsheet knows that the letters of a file are UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A row of semicolon separated values with its line's end, quoted where a spreadsheet needs it,
/// with what would act on a terminal written out.
std::string CsvLine(const std::vector<std::string>& cells);

}  // namespace quorvane
