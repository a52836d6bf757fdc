#pragma once

#include <map>
#include <set>
#include <sstream>
#include <string>

namespace quorvane::test {

/// The options that a program's help tells, each with what it calls its value; empty of one
/// without.
inline std::map<std::string, std::string> OptionsTold(const std::string& help) {
  std::map<std::string, std::string> options;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("  --")) continue;
    const auto end = line.find(' ', 2);
    auto& value = options[line.substr(2, end - 2)];
    if (end == std::string::npos || end + 1 >= line.size() || line[end + 1] == ' ') continue;
    value = line.substr(end + 1, line.find(' ', end + 1) - end - 1);
    // What it doesn't go with.
    if (value.ends_with(':')) value.clear();
  }
  return options;
}

/// Those whose value isn't known to be a text: one of a new kind counts as a number, until somebody
/// says here that it is none.
inline std::set<std::string> NumbersTold(const std::string& help) {
  const std::set<std::string> texts = {"", "CADENA", "FICHERO", "TEXTO", "FECHA", "dd/mm/aaaa"};
  std::set<std::string> names;
  for (const auto& [name, value] : OptionsTold(help))
    if (!texts.contains(value)) names.insert(name);
  return names;
}

/// What looks like a number, and isn't a plain decimal one.
inline constexpr const char* kNoPlainNumbers[] = {
    "01", "0x1", "", " 1", "1e0", "+1", "18446744073709551617", "uno"};

}  // namespace quorvane::test
