#include "tests/support/Traffic.h"

#include <algorithm>
#include <iterator>

namespace quorvane::test {
namespace {

std::string Filled(std::string text, std::initializer_list<Hole> holes) {
  std::size_t from = 0;
  for (const auto& hole : holes) {
    const auto at = text.find("{}", from);
    text.replace(at, 2, hole.Text());
    from = at + hole.Text().size();
  }
  return text;
}

}  // namespace

Lines operator+(Lines left, const Lines& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

Lines Traffic(const Lines& lines) {
  Lines traffic;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(traffic), [](const auto& line) {
    return line.starts_with("sql ") || line.starts_with("host ");
  });
  return traffic;
}

Lines Traffic(const ScriptResult& result) { return Traffic(result.lines); }

Lines Statements(const Lines& lines) {
  auto statements = Traffic(lines);
  std::erase_if(statements, [](const auto& line) { return line.starts_with("host "); });
  return statements;
}

Lines First(Lines lines, std::size_t count) {
  if (lines.size() > count) lines.resize(count);
  return lines;
}

std::string Sql(const std::string& statement, std::initializer_list<Hole> holes) {
  return Filled("sql centro " + statement, holes);
}

std::string SqlOfUsers(const std::string& statement, std::initializer_list<Hole> holes) {
  return Filled("sql entrada " + statement, holes);
}

}  // namespace quorvane::test
