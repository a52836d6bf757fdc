#include "tests/support/Replay.h"

namespace quorvane::test {

void Replay(const TestSchool& school, const std::vector<std::string>& lines) {
  const std::string prefix = "sql centro ";
  for (const auto& line : lines)
    if (line.starts_with(prefix) && !line.starts_with(prefix + "SELECT"))
      school.Sql(line.substr(prefix.size()));
}

}  // namespace quorvane::test
