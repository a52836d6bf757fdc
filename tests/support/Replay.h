#pragma once

#include <string>
#include <vector>

#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// Executes on another school what a session wrote to its own, as the lines of its script tell
/// ("sql centro INSERT ..."); queries and lines of other things are passed over.
inline void Replay(const TestSchool& school, const std::vector<std::string>& lines) {
  const std::string prefix = "sql centro ";
  for (const auto& line : lines)
    if (line.starts_with(prefix) && !line.starts_with(prefix + "SELECT"))
      school.Sql(line.substr(prefix.size()));
}

}  // namespace quorvane::test
