#pragma once

#include <string>
#include <vector>

namespace quorvane {

/// A row of semicolon separated values with its line's end, quoted where a spreadsheet needs it,
/// with what would act on a terminal written out.
std::string CsvLine(const std::vector<std::string>& cells);

}  // namespace quorvane
