#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quorvane {

/// A row of a table in text form, and the line of the file that it begins on, from 1.
struct CsvRow {
  std::size_t line = 0;
  std::vector<std::string> cells;  ///< UTF-8, without blanks round them
};

/// Reads a file of comma or semicolon separated values, whichever its first row holds more of, in
/// UTF-8 or, where it is none, in Windows-1252. Empty rows are left out. Error 0x80004005 in
/// Spanish, with the line where there is one, for a file that can't be read, that is a pipe or a
/// device, no text or too large, and for a quote that isn't closed.
std::vector<CsvRow> ReadCsv(const std::string& path);

/// The same of a text that has been read.
std::vector<CsvRow> ParseCsv(std::string text);

}  // namespace quorvane
