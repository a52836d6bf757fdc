#include "tests/crowd/Journal.h"

namespace quorvane::test {

std::vector<Journal::Line> Journal::Read(const std::string& path) {
  std::vector<Line> lines;
  std::ifstream file(path);
  char kind = 0;
  std::int64_t number = 0;
  while (file >> kind >> number) {
    std::string text;
    file.get();
    std::getline(file, text);
    lines.push_back({static_cast<Kind>(kind), number, text});
  }
  return lines;
}

}  // namespace quorvane::test
