#include "apps/escuela/CsvLine.h"

#include "platform/text/VisibleText.h"

namespace quorvane {

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line += ';';
    // Somebody may show the file on a terminal; a cell's line ends and tabs are a spreadsheet's
    // too.
    const auto cell = VisibleText(cells[i], "\n\t");
    if (cell.find_first_of(";,\"\n") == std::string::npos) {
      line += cell;
      continue;
    }
    line += '"';
    for (const auto letter : cell) {
      if (letter == '"') line += letter;
      line += letter;
    }
    line += '"';
  }
  return line + "\r\n";
}

}  // namespace quorvane
