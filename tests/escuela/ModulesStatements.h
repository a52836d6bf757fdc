#pragma once

#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <string>

#include "tests/support/StatementList.h"

namespace quorvane::test {

/// That all statements of a trace, of which there are more than so many, each behind its
/// connection, are in the list of those that the module issues.
inline void ExpectOfTheModule(const std::string& trace, const std::string& connections,
                              int moreThan) {
  const std::regex numbers("-?[0-9]+(,-?[0-9]+)*");
  std::set<std::string> known;
  for (const auto& line : Catalogue(QUORVANE_STATEMENTS))
    known.insert(std::regex_replace(FillIn(line, 1), numbers, "#"));
  const std::regex connection("^sql (" + connections + ") ");
  std::set<std::string> issued;
  auto count = 0;
  std::ifstream lines(trace);
  for (std::string line; std::getline(lines, line); ++count)
    issued.insert(std::regex_replace(line, connection, ""));
  for (const auto& statement : issued)
    EXPECT_TRUE(known.contains(std::regex_replace(statement, numbers, "#"))) << statement;
  EXPECT_GT(count, moreThan);
}

}  // namespace quorvane::test
