#include "bench/Markdown.h"

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <thread>

namespace quorvane::bench {

void Line(const std::vector<std::string>& cells) {
  for (const auto& cell : cells) std::printf("| %s ", cell.c_str());
  std::printf("|\n");
}

void Head(const std::vector<std::string>& cells) {
  Line(cells);
  for (std::size_t i = 0; i < cells.size(); ++i) std::printf(i == 0 ? "|---" : "|--:");
  std::printf("|\n");
}

std::string Number(double number, int decimals) {
  char text[32];
  std::snprintf(text, sizeof text, "%.*f", decimals, number);
  return text;
}

std::string Milliseconds(double seconds) {
  const auto milliseconds = seconds * 1e3;
  return Number(milliseconds, milliseconds < 10 ? 2 : milliseconds < 100 ? 1 : 0);
}

std::string Thousands(int number) {
  auto text = std::to_string(number);
  for (auto at = static_cast<int>(text.size()) - 3; at > 0; at -= 3)
    text.insert(static_cast<std::size_t>(at), ",");
  return text;
}

std::string Limit(double figure, double limit, bool& within) {
  if (limit == 0) return "";
  within = within && figure <= limit;
  return Number(limit, 1) + (figure <= limit ? "" : " EXCEEDED");
}

void Machine(const std::string& engine) {
  std::string processor = "unknown processor";
  std::ifstream cpuinfo("/proc/cpuinfo");
  for (std::string line; std::getline(cpuinfo, line);) {
    if (!line.starts_with("model name")) continue;
    processor = line.substr(line.find(':') + 2);
    break;
  }
  std::printf("\n%s on %u x %s.\n", engine.c_str(), std::thread::hardware_concurrency(),
              processor.c_str());
}

void Title(const std::string& title) { std::printf("\n### %s\n\n", title.c_str()); }

}  // namespace quorvane::bench
