#include "tests/grades/Replay.h"

namespace quorvane::test {

void Replay(const TestSchool& school, const Lines& traffic) {
  const std::string prefix = "sql centro ";
  for (const auto& line : traffic)
    if (line.starts_with(prefix) && !line.starts_with(prefix + "SELECT"))
      school.Sql(line.substr(prefix.size()));
}

}  // namespace quorvane::test
