#include "apps/escuela/CsvLine.h"

namespace quorvane {

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line += ';';
    if (cells[i].find_first_of(";,\"\r\n") == std::string::npos) {
      line += cells[i];
      continue;
    }
    line += '"';
    for (const auto letter : cells[i]) {
      if (letter == '"') line += letter;
      line += letter;
    }
    line += '"';
  }
  return line + "\r\n";
}

}  // namespace quorvane
