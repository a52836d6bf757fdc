#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/AsciiCase.h"

namespace quorvane::test {

/// The statements in a list of them: every one that the module can issue, with {n}, {b} and {l}
/// where its numbers stand.
inline std::vector<std::string> Catalogue(const std::string& file) {
  std::vector<std::string> lines;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    if (line.empty() || line[0] == '#') continue;
    if (line.starts_with("~ ") || line.starts_with("? ")) line.erase(0, 2);
    lines.push_back(line);
  }
  return lines;
}

/// One of them with its numbers filled in.
inline std::string FillIn(std::string line, int number) {
  const auto replace = [&line](const std::string& mark, const std::string& value) {
    for (auto at = line.find(mark); at != std::string::npos; at = line.find(mark))
      line.replace(at, mark.size(), value);
  };
  replace("{l}", std::to_string(number) + "," + std::to_string(number + 1) + ",5");
  replace("{b}", "-1");
  replace("{n}", std::to_string(number));
  return line;
}

inline bool IsSelect(const std::string& statement) {
  return EqualNoCase(std::string_view(statement).substr(statement.find_first_not_of(' '), 6),
                     "SELECT");
}

}  // namespace quorvane::test
