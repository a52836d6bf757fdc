#include "apps/escuela/CsvLine.h"

#include <string_view>

#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

/// A cell as it may stand in a file that somebody shows on a terminal; its own line ends and tabs
/// are a spreadsheet's too.
std::string VisibleCell(std::string_view cell) {
  std::string visible;
  for (;;) {
    const auto end = cell.find_first_of("\n\t");
    visible += VisibleText(cell.substr(0, end));
    if (end == std::string_view::npos) return visible;
    visible += cell[end];
    cell.remove_prefix(end + 1);
  }
}

}  // namespace

std::string CsvLine(const std::vector<std::string>& cells) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line += ';';
    const auto cell = VisibleCell(cells[i]);
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
