#pragma once

#include <istream>
#include <vector>

#include "adapters/guion/Command.h"

namespace quorvane::guion {

/// Reads a script to its end and checks the whole of its syntax, so that a script with a mistake
/// does nothing at all. Empty lines and comments give no command. Throws `ScriptError` for an
/// unknown command, missing, surplus or ill-formed arguments, and text that isn't UTF-8.
std::vector<Command> ParseScript(std::istream& script);

}  // namespace quorvane::guion
