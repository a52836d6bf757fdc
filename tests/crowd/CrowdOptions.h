#pragma once

#include <cstdint>
#include <string>

namespace quorvane::test {

/// Something done wrong on purpose by the first process, to see that it is found.
enum class Fault {
  None,
  Grade,  ///< gives a grade on a subject that another holds
  Lock,   ///< leaves its locks behind
  Lost,   ///< tells that it has saved what it hasn't
  Wait,   ///< doesn't wait for the others
};

struct CrowdOptions {
  int processes = 8;
  int seconds = 60;
  std::uint64_t seed = 1;
  int pause = 0;  ///< the longest that a user thinks between two gestures, in milliseconds
  std::string school = "300";  ///< "demo", a number of students to generate, or a file to copy
  std::string journalMode = "wal";
  std::string odbc;   ///< of a database without tables, where the school is made; a file when empty
  std::string owner;  ///< the same as who makes the tables; as who works when empty
  int users = 8;      ///< whom the school knows, from 1 on
  std::string folder;  ///< where the school is; that for temporary files when empty
  Fault fault = Fault::None;
};

}  // namespace quorvane::test
