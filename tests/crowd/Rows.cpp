#include "tests/crowd/Rows.h"

namespace quorvane::test {

std::vector<std::string> SplitRow(const std::string& row) {
  std::vector<std::string> values;
  std::size_t start = 0;
  for (auto bar = row.find('|'); bar != std::string::npos; bar = row.find('|', start)) {
    values.push_back(row.substr(start, bar - start));
    start = bar + 1;
  }
  values.push_back(row.substr(start));
  return values;
}

std::string GradesOf(const std::string& row) {
  std::size_t start = 0;
  for (int i = 0; i < 3; ++i) start = row.find('|', start) + 1;
  return row.substr(start, row.rfind('|') - start);
}

}  // namespace quorvane::test
