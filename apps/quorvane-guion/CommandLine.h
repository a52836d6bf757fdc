#pragma once

#include <optional>
#include <string>

#include "apps/quorvane-guion/PlayOptions.h"

namespace quorvane::guion {

/// What the command line asks for.
struct CommandLine {
  PlayOptions options;
  std::string script;  ///< its file; standard input when empty
};

/// Reads the program's arguments. None when there is nothing to play: `status` is then the exit
/// status, 0 after the help and 2 for bad arguments, and all has been told.
std::optional<CommandLine> ReadCommandLine(int argc, const char* const* argv, int& status);

}  // namespace quorvane::guion
