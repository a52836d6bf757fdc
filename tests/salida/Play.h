#pragma once

#include <string>
#include <vector>

#include "tests/salida/Moment.h"
#include "tests/salida/Session.h"

namespace quorvane::test {

/// How a process has ended, and what it had executed by then.
struct Played {
  int signal = 0;  ///< that it ended by; 0 for none
  int status = 0;  ///< when by none
  std::string errors;
  std::vector<std::string> writes;  ///< the module's statements that write, in their order
  std::string rescued;  ///< the file with the grades that weren't saved, if there is one
};

/// The whole program in a process of its own, with somebody at it who plays the session on the
/// school's file.
Played Play(const Session& session, const std::string& school, const Moment& moment = {});

}  // namespace quorvane::test
